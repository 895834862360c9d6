#include "editor/insert_recording.h"

#include "recording/recording_stage.h"
// The buttons of the builder have names that the headers of a recording use for others.
#include "editor/edit_story.h"

using namespace edit_story;

namespace {

class InsertRecordingTest : public RecordingStage {
protected:
    InsertRecordingTest() { recordingViewStandIn.editor = ZavrsiUmetanjeSnimanjem; }

    JobBuilder InNotepad() const {
        JobBuilder job;
        job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled - Notepad"});
        return job;
    }

    // The user says OK, types a key 200 ms later, and stops 100 ms after that.
    void RecordKey(void (*button)(), int virtualKey) {
        simulated::AnswerNextBox({.yes = true});
        button();
        ASSERT_TRUE(RecordingActive());
        platform::Sleep(200);
        simulated::UserPressesKey(virtualKey);
        platform::Pump();
        platform::Sleep(40);
        simulated::UserReleasesKey(virtualKey);
        platform::Pump();
        platform::Sleep(60);
        simulated::UserTaps(PauseBreak);
        platform::Pump();
        ASSERT_FALSE(RecordingActive());
        EXPECT_EQ(editViewStandIn.calls.back(), "ShowRows");
    }

    std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const KeyRow& row : editState.KeyRows) texts.push_back(row.Text);
        return texts;
    }
};

TEST_F(InsertRecordingTest, AboveBelowAndAtTheEnd) {
    Open(InNotepad().Wait(490).Click(Left, 1, 1).Wait(290).Type("b").Wait(90).Click(Left, 2, 2).Built());
    const std::vector<std::int32_t> before = Times();
    Select(0);
    RecordKey(start_recording_above, 'P');
    EXPECT_EQ(editSelection.Row, 0);
    EXPECT_EQ(DelayOf(0), before[0] + 200) << "the time before the first event is 0";
    EXPECT_EQ(DelayOf(1), before[0]) << "counted from the end of the piece";
    Select(2);
    RecordKey(start_recording_below, 'Q');
    EXPECT_EQ(editSelection.Row, 3);
    EXPECT_EQ(DelayOf(3), 100 + 200) << "from what was the time of the next row";
    Select(4);
    const std::int32_t end = Times().back();
    RecordKey(start_recording_below, 'R');
    EXPECT_EQ(Times()[Times().size() - 2], end + 10 + 200) << "the duration of the last row counts twice";
    EXPECT_THAT(Texts(), ElementsAre("p", "b", "q", "r"));
}

TEST_F(InsertRecordingTest, IntoAnEmptyJobAndWithNothingInIt) {
    Open(JobBuilder().Built());
    RecordKey(start_recording_below, 'P');
    EXPECT_THAT(Texts(), ElementsAre("p"));
    EXPECT_THAT(Times(), ElementsAre(200, 240));

    simulated::AnswerNextBox({.yes = true});
    start_recording_above();
    EXPECT_THAT(editViewStandIn.calls, Not(Contains("BringBack").Times(2)));
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    EXPECT_EQ(editViewStandIn.calls.back(), "BringBack");
    EXPECT_THAT(Times(), ElementsAre(200, 240));

    simulated::AnswerNextBox({.yes = false, .cancel = true});
    start_recording_above();
    EXPECT_FALSE(RecordingActive());
}

TEST_F(InsertRecordingTest, RefusesRowsThatAreNotThere) {
    Open(InNotepad().Type("a").Built());
    simulated::AnswerNextBox({.yes = true});
    InsertRecording(7, false, true);
    EXPECT_EQ(Boxes().back(), "Tessarine|Krivi index selekcije!: 7");
    EXPECT_FALSE(RecordingActive());
}

}  // namespace
