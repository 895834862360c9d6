#include "shell/session_end.h"

#include "editor/edit_job.h"
#include "editor/job_changes.h"
#include "jobs/job_file.h"
#include "platform/files.h"
#include "recording/recording_session.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/recording_view_stand_in.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

class SessionEnd : public testing::Test {
protected:
    SessionEnd() {
        folders.DataFolder = "C:\\data";
        simulated::PutFolder(folders.DataFolder);
        settings.Display_Recording_Window = 0;
        recordingViewStandIn.recover = [this] {
            blocked = shellStandIn.calls;
            return "Recovered";
        };
    }

    static bool SettingsAreSaved() { return simulated::FileBytes("C:\\data\\settings.binary").has_value(); }

    static void RecordAKey() {
        StartRecording();
        simulated::UserTaps('A');
        platform::Pump();
        shellStandIn.calls.clear();
    }

    std::vector<std::string> blocked;  // calls until the recording was written
};

TEST_F(SessionEnd, SavesTheSettingsAndAsksNobody) {
    EXPECT_THROW(EndWithSession(), ProcessEnded);
    EXPECT_TRUE(SettingsAreSaved());
    EXPECT_FALSE(WasCalled("BlockShutdown"));
    EXPECT_TRUE(simulated::ShownBoxes().empty());
}

TEST_F(SessionEnd, WritesTheChangedJobOfTheEditorBesideTheOneInTheFile) {
    const std::string path = "C:\\data\\Mine.tsj";
    Job job = JobBuilder().InWindow({"Notepad", "Untitled"}).Type("ab").Built();
    job.SpeedPercent = 300;
    WriteJob(path, job);
    const auto before = simulated::FileBytes(path);
    editJob(path);
    SetKeyText(0, "xy");
    EXPECT_THROW(EndWithSession(), ProcessEnded);
    EXPECT_EQ(simulated::FileBytes(path), before);
    const auto jobs = platform::FilesIn("C:\\data", ".tsj");
    ASSERT_EQ(jobs->size(), 2U);
    Job recovered;
    ReadJob("C:\\data\\" + (*jobs)[1], recovered);
    EXPECT_THAT((*jobs)[1], StartsWith("Recovered"));
    EXPECT_THAT(recovered.Strings, ElementsAre("xy"));
    EXPECT_EQ(recovered.SpeedPercent, 300);
    EXPECT_GT(PlaceOf("UnblockShutdown"), PlaceOf("BlockShutdown"));
}

// The session ends while Windows is told to wait, and no longer.
TEST_F(SessionEnd, WritesARecordingWhileWindowsWaits) {
    RecordAKey();
    EXPECT_THROW(EndWithSession(), ProcessEnded);
    EXPECT_THAT(blocked, ElementsAre("BlockShutdown"));
    EXPECT_GT(PlaceOf("UnblockShutdown"), PlaceOf("BlockShutdown"));
    EXPECT_LT(PlaceOf("UnblockShutdown"), PlaceOf("EndProcess"));
    EXPECT_TRUE(SettingsAreSaved());
}

TEST_F(SessionEnd, WhateverFailsTheProcessEndsAndNothingIsBlocked) {
    simulated::LosePath(folders.DataFolder);
    RecordAKey();
    recordingViewStandIn.recover = []() -> std::string { throw std::bad_alloc(); };
    EXPECT_THROW(EndWithSession(), ProcessEnded);
    EXPECT_TRUE(WasCalled("UnblockShutdown"));
    EXPECT_TRUE(simulated::ShownBoxes().empty());
}

}  // namespace
