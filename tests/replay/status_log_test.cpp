#include "dictionary/dictionary.h"
#include "platform/text.h"
#include "replay/replay_log.h"
#include "replay/status.h"
#include "support/disk_faults.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

namespace {

constexpr const char* LogPath = "C:\\Data\\Every day.log";

TEST(SetStatus, WritesTheLabelInTheLanguageInForce) {
    const std::tuple<int, std::string, std::string> cases[] = {
        {StatusRunning, "", "executing job..."},
        {StatusWebPage, "", "Waiting for web page to load..."},
        {StatusFinished, "", "Finished"},
        {StatusCanceled, "ignored", "Canceled"},
        {StatusWaitingForWindow, "Untitled", "Waiting for window:\r\nUntitled"},
    };
    Translate("Finished");
    for (const auto& [code, text, label] : cases) {
        setStatus(code, text);
        EXPECT_EQ(statusViewStandIn.statusLabel, label);
    }
    SetLanguage(LanguageFrench);
    Translate("Finished");
    setStatus(StatusWaitingForWindow, "x");
    EXPECT_EQ(statusViewStandIn.statusLabel, platform::FromUtf8("De espera para la ventana\u00A0:\r\nx"));
}

TEST(Premjesti, StaysWhereBothPlacesLieUnderThePointer) {
    auto& view = statusViewStandIn;
    view.executing2.visible = view.executing.visible = true;
    simulated::SetScreenSize({500, 1024});
    simulated::PlaceCursor({250, 300});  // over the list, 400 pixels wide, on the left as on the right
    const platform::Rect stood = view.executing.rectangle;
    Premjesti(false);
    EXPECT_EQ(view.executing.rectangle, stood);
    simulated::PlaceCursor({30, 300});
    for (const bool byForce : {false, true}) {
        Premjesti(byForce);
        EXPECT_EQ(view.executing.rectangle.left, 80) << "here dodging helps";
    }
}

TEST(Premjesti, GoesToTheOtherSideAndTakesTheListAlong) {
    simulated::SetScreenSize({1280, 1024});
    auto& view = statusViewStandIn;
    view.executing.visible = true;
    Premjesti(false);
    EXPECT_EQ(view.executing2.rectangle, (platform::Rect{960, 0, 1260, 140}));
    EXPECT_EQ(view.executing.rectangle, (platform::Rect{860, 150, 1260, 450}));
    Premjesti(true);
    EXPECT_EQ(view.executing2.rectangle.left, 960) << "by force it is always the right";
    Premjesti(false);
    EXPECT_EQ(view.executing2.rectangle.left, 20);
    EXPECT_EQ(view.executing.rectangle.left, 20);
    view.executing.visible = false;
    Premjesti(false);
    EXPECT_EQ(view.executing2.rectangle.left, 960);
    EXPECT_EQ(view.executing.rectangle.left, 20);
}

class Logging : public testing::Test {
protected:
    Logging() {
        simulated::PutFolder("C:\\Data");
        simulated::SetLocalTime({2026, 11, 15, 5, 7, 9});
    }

    static std::string Written() { return simulated::FileBytes(LogPath).value_or("no file"); }
};

TEST_F(Logging, FirstLineBringsTheDateAndSetsItsOwnGap) {
    const std::string date = "Date: " + platform::ShortDateText();
    LogLine("Job speed: 100 (normal speed)", 7);
    LogLine("Job will repeat: 1 time(s)", 0, 1);
    LogLine("last", 1);
    EXPECT_EQ(replayLog.LogBuffer, date +
                                       "\r\n\r\n05:07:09  Job speed: 100 (normal speed)\r\n"
                                       "05:07:09  Job will repeat: 1 time(s)\r\n\r\n"
                                       "\r\n05:07:09  last\r\n");
}

TEST_F(Logging, OldTextIsTakenOverLineByLine) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},         {"no line end", "no line end\r\n"}, {"a\nb\n", "a\r\nb\r\n"},
        {"\r\n", "\r\n"}, {"a\r\n\r\nb", "a\r\n\r\nb\r\n"},
    };
    for (const auto& [old, tail] : cases) {
        simulated::PutFile(LogPath, old);
        replayLog.LogBuffer = "new";
        WriteLogFile(LogPath);
        EXPECT_EQ(Written(), "new\r\n\r\n\r\n" + tail + "\r\n");
    }
}

// Whichever step of the writing fails, the old log is there, or all of the new one, and a failure keeps the buffer.
TEST_F(Logging, FailedWriteNeverTearsTheLog) {
    SurvivesEveryFault({LogPath, "old\r\n", "new\r\n\r\n\r\nold\r\n\r\n", [] {
                            replayLog.LogBuffer = "new";
                            try {
                                WriteLogFile(LogPath);
                            } catch (...) {
                                EXPECT_EQ(replayLog.LogBuffer, "new");
                                throw;
                            }
                            EXPECT_EQ(replayLog.LogBuffer, "");
                        }});
}

}  // namespace
