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

// For years, and then as many whole runs as there is room for: nothing of an older one is left behind them.
TEST_F(Logging, BeyondItsLimitTheOldestRunsGo) {
    const auto run = [](const std::string& name, std::size_t size) {
        return "Date: 11/15/2026\r\n\r\n05:07:09  " + name + std::string(size, '.') + "\r\n";
    };
    const auto write = [](const std::string& text) {
        replayLog.LogBuffer = text;
        WriteLogFile(LogPath);
        const std::string written = Written();
        EXPECT_THAT(written, StartsWith(text + "\r\n\r\n\r\n"));
        return written;
    };
    constexpr std::size_t quarter = LargestLog / 4;
    for (int i = 0; i < 9; ++i) {
        const std::string written = write(run("run " + std::to_string(i), quarter));
        EXPECT_LE(written.size(), LargestLog);
        std::string expected;
        for (int old = i; old >= 0 && old > i - 3; --old) {
            expected += run("run " + std::to_string(old), quarter) + "\r\n\r\n\r\n";
        }
        EXPECT_TRUE(written.starts_with(expected)) << i;
        EXPECT_EQ(written.find_first_not_of("\r\n", expected.size()), std::string::npos) << i;
    }
    const std::string longest = run("longer than any log", LargestLog);
    EXPECT_EQ(write(longest), longest + "\r\n\r\n\r\n\r\n") << "the newest stays";
    EXPECT_EQ(write("Date: short"), "Date: short\r\n\r\n\r\n\r\n");
}

TEST_F(Logging, WhereALogCannotBeIsToldAndTheLinesAreKept) {
    simulated::PutFolder("C:\\Data\\A folder.log");
    simulated::PutFile(LogPath, "old");
    simulated::LockFileAgainstReaders(LogPath);
    simulated::LosePath("E:");
    const std::pair<std::string, std::string> cases[] = {
        {"C:\\Data\\A folder.log", "a folder has this name"},
        {LogPath, "cannot be read"},
        {"E:\\Jobs\\a.log", "cannot be saved"},
    };
    for (const auto& [path, reason] : cases) {
        replayLog.LogBuffer = "new";
        try {
            WriteLogFile(path);
            ADD_FAILURE() << path;
        } catch (const RuntimeFailure& failure) {
            EXPECT_THAT(failure.what(), testing::AllOf(HasSubstr(path), HasSubstr(reason)));
        }
        EXPECT_EQ(replayLog.LogBuffer, "new");
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
