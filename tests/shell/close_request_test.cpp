// An installer asks the program to end: what would be broken off or left undecided keeps it.
#include "shell/close_request.h"

#include "mainwindow/job_page.h"
#include "mainwindow/main_window_use.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/start_up_runs.h"
#include "shell/handed_over.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

struct Keeper {
    const char* name;
    std::function<void()> begin;
    std::function<void()> end;
};

void PrintTo(const Keeper& keeper, std::ostream* out) {
    *out << keeper.name;
}

const Keeper keepers[] = {
    {"a recording", [] { StartRecording(); }, [] { StopRecording(); }},
    {"a run", [] { runState.ReplayRunning = true; }, [] { runState.ReplayRunning = false; }},
    {"a countdown", [] { scheduleDispatch.CountdownActive = true; }, [] { scheduleDispatch.CountdownActive = false; }},
    {"runs that wait for the machine", [] { startUpRuns.StartupQueue.emplace_back(); },
     [] { startUpRuns.StartupQueue.clear(); }},
    {"the start", [] { OpenFrontDoor(); }, [] { CloseFrontDoor(); }},
    {"a form over the window", [] { mainWindowUse.Take(MainWindowHolder::Dialog); },
     [] { mainWindowUse.GiveBack(MainWindowHolder::Dialog); }},
    {"a form of the system's", [] { shellStandIn.enabled = false; }, [] { shellStandIn.enabled = true; }},
    {"changes on the job page", [] { jobPage.button_save_changes = true; },
     [] { jobPage.button_save_changes = false; }},
};

class CloseRequest : public testing::TestWithParam<Keeper> {};

TEST_P(CloseRequest, WaitsUntilItIsOver) {
    EXPECT_TRUE(MayBeEnded());
    GetParam().begin();
    EXPECT_FALSE(MayBeEnded());
    GetParam().end();
    EXPECT_TRUE(MayBeEnded());
    EXPECT_THAT(Boxes(), IsEmpty()) << "nobody is asked";
}

INSTANTIATE_TEST_SUITE_P(Keepers, CloseRequest, testing::ValuesIn(keepers));

// Such a run leaves its mark until the program ends, and would keep an installer out for good.
TEST(CloseRequestAfterARun, ThatDidNotBeginItIsGranted) {
    runState = {.ReplayRunning = true, .programWasMissing = true};
    EXPECT_TRUE(MayBeEnded());
}

// What a second start has brought is not lost.
TEST(CloseRequestAfterASecondStart, WaitsForItsCommand) {
    handedOver.starting = true;
    OnCommandHandedOver("-edit C:\\job.tsj");
    handedOver.starting = false;
    EXPECT_FALSE(MayBeEnded());
}

}  // namespace
