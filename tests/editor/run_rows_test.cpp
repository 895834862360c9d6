#include "editor/run_rows.h"

#include "editor/explain_row.h"

#include "replay/replay_stage.h"
#include "replay/run_job.h"
#include "settings/settings.h"

// The buttons of the builder have names that other headers use for other things.
#include "editor/edit_story.h"

using namespace edit_story;
using simulated::TextOf;

namespace {

class RunRowsTest : public ReplayStage {
protected:
    void OpenStory() {
        InEdit().Click(Left, 300, 300).Wait(2000).Type("one").InWindow({"Other", "Nowhere"});
        InEdit().Click(Left, 301, 301).Type("two").Click(Left, 302, 302).Type("six");
        Job built = job.Built();
        built.RepeatCount = 3;
        built.StartProgram.ProgramPath = "C:\\nothing.exe";
        Open(built);
    }
};

TEST_F(RunRowsTest, PlaysWhatTheEditorShowsOnceAndNoMore) {
    OpenStory();
    ASSERT_THAT(LinesOf(editState), SizeIs(6));
    SetKeyText(1, "tw{ENTER}");
    const auto file = simulated::FileBytes(path);
    Select(3);
    RunSelectedRows();
    EXPECT_EQ(TextOf(edit), "tw\r\n") << LastBox();
    Select(2, 2);
    bool running = false;
    simulated::After(0, [&] { running = runState.ReplayRunning; });
    RunFromHere();
    EXPECT_TRUE(running) << "or another start could come between";
    EXPECT_EQ(TextOf(edit), "tw\r\ntw\r\nsix") << LastBox();
    EXPECT_EQ(simulated::FileBytes(path), file) << "nothing is saved by it";
    EXPECT_EQ(settings.RecentJobs[0], "");
    EXPECT_TRUE(SaveIsEnabled());
    EXPECT_FALSE(runState.ReplayRunning);
}

TEST_F(RunRowsTest, WhatARunWouldFindIsToldForTheSelectedRowAndNothingIsDone) {
    OpenStory();
    simulated::MoveWindow(notepad, {200, 200});
    for (const int row : {0, 1}) {
        Select(row);
        const Explanation explanation = ExplainSelectedRow();
        EXPECT_EQ(explanation.result, TargetReady);
        EXPECT_EQ(explanation.useFocus, row == 1);
        EXPECT_EQ(explanation.row,
                  row == 0 ? "1: LEFT CLICK - Untitled - Notepad" : "2: Keystrokes - Untitled - Notepad");
    }
    EXPECT_EQ(simulated::ScreenRectOf(notepad).left, 200);
    EXPECT_TRUE(simulated::Journal().empty());
    simulated::Destroy(notepad);
    EXPECT_EQ(ExplainSelectedRow().result, TargetWindowMissing);
}

}  // namespace
