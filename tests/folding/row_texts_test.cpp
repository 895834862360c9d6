#include "folding/row_texts.h"

#include "dictionary/dictionary.h"
#include "folding/popuni_listu.h"
#include "folding/row_lines.h"
#include "support/job_builder.h"
#include "support/open_in_editor.h"
#include "support/story.h"

namespace {

const JobBuilder::Level notepad{"Notepad", "Untitled"};
const JobBuilder::Level edit{"Edit", "", 15};

TEST(RowTexts, TimesAreWrittenInFull) {
    EXPECT_EQ(timeStr(0), "00:00:00.000");
    EXPECT_EQ(timeStr(1'999), "00:00:01.999");
    EXPECT_EQ(timeStr(61'005), "00:01:01.005");
    EXPECT_EQ(timeStr(36'000'000), "10:00:00.000");
    EXPECT_EQ(TimeString(59 * 3600 + 59 * 60 + 59), "59:59:59");
    EXPECT_EQ(TimeString(60 * 3600), "00:00:00");
}

TEST(RowTexts, ActionsAreNamedByFlagsAndWidth) {
    // Rows of one event, of two, and of more; none: a type failure.
    const std::tuple<std::int32_t, const char*, const char*, const char*> cases[] = {
        {0x8001, "MOVE", "MOVE", "MOVE"},
        {0x8002, "Left Down", "Left Click", nullptr},
        {0x8004, "Left Up", "Left Up", "Left Up"},
        {0x8008, "Right Down", "Right Click", nullptr},
        {0x8010, "Right Up", "Right Up", "Right Up"},
        {0x8020, "Middle Down", "Middle Click", nullptr},
        {0x8040, "Middle Up", "Middle Up", "Middle Up"},
        {0x8080, "Xbutton2 Down", "Xbutton2 Up", nullptr},
        {0x8100, "Xbutton2 Up", "Xbutton2 Up", "Xbutton2 Up"},
        {221, "Double click", "Double click", "Double click"},
        {0x8800, "Unknown", "Unknown", "Unknown"},
    };
    Translate("OK");
    JobEvent event;
    event.mouseData() = 65536 + 2;
    editState.EditEvents = {event};
    editState.MouseRows = {MouseRow{}};
    MouseRow& row = editState.MouseRows[0];
    for (const auto& [flags, oneEvent, twoEvents, moreEvents] : cases) {
        row.Flags = flags;
        row.LastEvent = 0;
        EXPECT_EQ(GetInputStr(0), oneEvent) << flags;
        row.LastEvent = 1;
        EXPECT_EQ(GetInputStr(0), twoEvents) << flags;
        row.LastEvent = 2;
        if (moreEvents != nullptr) {
            EXPECT_EQ(GetInputStr(0), moreEvents) << flags;
        } else {
            EXPECT_THROW(GetInputStr(0), RuntimeFailure) << flags;
        }
    }
}

TEST(RowTexts, DelayBeyondThirtyTwoBitsIsOverflow) {
    OpenInEditor(JobBuilder().InWindow(notepad).At(INT32_MIN).Wheel(60).At(INT32_MAX - 100).Wheel(60).Built());
    EXPECT_EQ(FailureOf([] { GetDelay(1); }), FailureKind::Overflow);
}

TEST(RowTexts, WindowsAreNamedByTheirTopLevel) {
    struct WindowCase {
        std::vector<JobBuilder::Level> path;
        const char* windowName;
        const char* nameAndElement;
    };
    const JobBuilder::Level progman{"Progman", "Program Manager"};
    const WindowCase cases[] = {
        {{edit, notepad}, "Untitled", "Untitled -> (Text field)"},
        {{{"Button", "OK", 1}, {"#32770", "Print"}}, "Print", "Print -> OK(Button)"},
        {{{"", "OK", 1}, notepad}, "Untitled", "Untitled -> OK"},
        {{notepad}, "Untitled", "Untitled"},
        {{{"SysListView32", "FolderView", 1}, {"SHELLDLL_DefView", ""}, progman}, "Desktop", "Desktop"},
        {{{"Progman", "Other"}}, "Other", "Other"},
        {{{"#32768", ""}}, "Popup menu", "Popup menu"},
        {{{"Start", "Start", 1}, {"Shell_TrayWnd", ""}}, "Start(Start)", "Start(Start)"},
        {{{"Shell_TrayWnd", ""}}, "", ""},
    };
    Translate("OK");
    JobBuilder job;
    std::int32_t chain = 0;
    for (const WindowCase& window : cases) job.InWindowPath(window.path);
    OpenInEditor(job.Built());
    for (const WindowCase& window : cases) {
        EXPECT_EQ(WindowName(chain), window.windowName);
        EXPECT_EQ(WindowNameiElement(chain), window.nameAndElement);
        ++chain;
    }
}

TEST(RowTexts, NegativeChainsHaveNoWindowOrAreTurnedRound) {
    JobBuilder job;
    job.InWindow({"A", "first"}).InWindow({"B", "second"});
    OpenInEditor(job.Built());
    std::int32_t noWindow = NoWindowMarker;
    std::int32_t second = -1;
    std::int32_t lowest = INT32_MIN;
    EXPECT_EQ(WindowName(-1), "");
    EXPECT_EQ(WindowNameiElement(noWindow), "");
    EXPECT_EQ(WindowNameiElement(second), "second");
    EXPECT_EQ(second, 1);
    EXPECT_THROW(WindowNameiElement(lowest), RuntimeFailure);
    EXPECT_EQ(WindowName(2), "") << "a window that the job only claims to have";
}

TEST(RowTexts, GridHasEightColumns) {
    JobBuilder job;
    job.InWindow(edit, notepad).At(100).Move(3, 4).At(1'500).Click(Left, 3, 4).At(2'000).Type("a").Key(13);
    OpenInEditor(job.At(3'000).Wheel(-120).Wheel(-120).Built());
    EXPECT_THAT(RowColumns(0), ElementsAre("", "MOUSE", "MOVE", "100ms", "00:00:00.100", "0ms", "", "3,4"));
    EXPECT_THAT(RowColumns(1),
                ElementsAre("1", "MOUSE", "LEFT CLICK", "1400ms", "00:00:01.500", "10ms", "Untitled", "3,4"));
    EXPECT_THAT(RowColumns(2),
                ElementsAre("2", "KEYBOARD", "Keystrokes", "490ms", "00:00:02.000", "30ms", "Untitled", "a{ENTER}"));
    EXPECT_THAT(RowColumns(3), ElementsAre("3", "MOUSE", "WHEEL", "970ms", "00:00:03.000", "10ms", "Untitled",
                                           "{WHEEL DOWN}{WHEEL DOWN}"));
}

}  // namespace
