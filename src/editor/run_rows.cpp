#include "editor/run_rows.h"

#include <cstdint>
#include <utility>

#include "base/text.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "replay/run_job.h"

namespace {

void RunRows(std::int32_t from, std::int32_t to) {
    JobHeader header = editState.header;
    header.StartProgram = {};  // it is running, or the rows would not be tried one by one
    header.RepeatCount = 1;
    Job job = JobToSave(header);
    job.Events = EventsToSaveOf(from, to);
    RunLoadedJob(std::move(job), BaseName(editState.jobName));
}

}  // namespace

void RunFromHere() {
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    if (RowCount() > 0) RunRows(from, RowCount() - 1);
}

void RunSelectedRows() {
    std::int32_t from = 0;
    std::int32_t to = 0;
    GetOdkudDokud(from, to);
    if (RowCount() > 0) RunRows(from, to);
}
