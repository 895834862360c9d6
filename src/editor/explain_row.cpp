#include "editor/explain_row.h"

#include "base/text.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"

namespace {

// "3: Left Click - Untitled - Notepad"
std::string InWords(std::int32_t row) {
    constexpr std::size_t Number = 0;
    constexpr std::size_t Action = 2;
    constexpr std::size_t Window = 6;
    const GridColumns columns = RowColumns(row);
    std::string text = Trim(columns[Number]);
    if (!text.empty()) text += ": ";
    return text + Trim(columns[Action]) + " - " + Trim(columns[Window]);
}

}  // namespace

Explanation ExplainSelectedRow() {
    if (RowCount() == 0) return {};
    const std::int32_t row = editSelection.RowSel;
    Job job = JobToSave(editState.header);
    job.Events = EventsToSaveOf(row, row);
    if (job.Events.empty()) return {};
    Explanation explanation = Explain(job, 0, static_cast<std::int32_t>(job.Events.size()) - 1);
    explanation.row = InWords(row);
    return explanation;
}
