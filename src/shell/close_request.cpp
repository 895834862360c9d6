#include "shell/close_request.h"

#include "mainwindow/job_page.h"
#include "mainwindow/main_window_use.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/start_up_runs.h"
#include "shell/handed_over.h"

namespace {

bool IsStarting() {
    return handedOver.starting || !handedOver.waiting.empty();
}

bool RunIsNear() {
    return scheduleDispatch.CountdownActive || !startUpRuns.StartupQueue.empty();
}

}  // namespace

bool MayBeEnded() {
    return !IsStarting() && !RecordingActive() && !RunIsUnderWay() && !RunIsNear() && mainWindowUse.IsFree() &&
           !jobPage.button_save_changes;
}
