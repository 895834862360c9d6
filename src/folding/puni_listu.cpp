#include "folding/puni_listu.h"

#include <utility>

#include "folding/fold.h"
#include "jobs/job_file.h"

namespace {

// The log and the status window name a window by the caption of its top level alone; it may be empty.
std::string NameOfWindow(const JobArrays& job, std::int32_t chainIndex) {
    if (chainIndex < 0) return {};
    const WindowSignature& window = OutermostWindow(job, chainIndex);
    return IsDesktop(window) ? "Desktop" : window.Caption;
}

ActionRow OfMouse(const JobArrays& job, const MouseRow& row) {
    return {row.FirstEvent, row.LastEvent, {}, MouseActionRow, row.Flags, NameOfWindow(job, row.WindowChainIndex)};
}

ActionRow OfKeys(const JobArrays& job, KeyRow& row) {
    return {row.FirstEvent,
            row.LastEvent,
            std::move(row.Text),
            KeystrokeActionRow,
            0,
            NameOfWindow(job, row.WindowChainIndex)};
}

}  // namespace

std::vector<ActionRow> FoldForReplay(const Job& job) {
    const JobArrays arrays{job.Events, job.Strings, job.Windows, job.Chains};
    FoldedRows folded;
    FoldEvents(arrays, folded, nullptr);

    std::vector<ActionRow> rows;
    const std::size_t count = folded.KeyRows.size() + folded.MouseRows.size();
    rows.reserve(count);
    for (std::size_t keyRow = 0, mouseRow = 0; keyRow + mouseRow < count;) {
        rows.push_back(KeyRowComesNext(folded, keyRow, mouseRow) ? OfKeys(arrays, folded.KeyRows[keyRow++])
                                                                 : OfMouse(arrays, folded.MouseRows[mouseRow++]));
    }
    return rows;
}

std::vector<ActionRow> FoldForReplay(const std::string& jobPath) {
    Job job;
    ReadJob(jobPath, job);
    return FoldForReplay(job);
}
