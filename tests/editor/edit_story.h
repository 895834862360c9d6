// Stories of the job editor: a job on the simulated disk, opened in the editor.
#pragma once

#include <string>
#include <vector>

#include "editor/edit_job.h"
#include "editor/job_changes.h"
#include "editor/row_edits.h"
#include "editor/save_job.h"
#include "folding/popuni_listu.h"
#include "folding/row_lines.h"
#include "folding/row_texts.h"
#include "jobs/job_file.h"
#include "support/edit_view_stand_in.h"
#include "support/job_builder.h"
#include "support/story.h"

namespace edit_story {

inline const std::string path = "C:\\jobs\\My job.tsj";

void Open(const Job& job);

// What a save right after the last Open would have written.
extern Job asOpened;

// The rows as the grid shows them, a line each.
std::vector<std::string> GridLines();

// Of the job of this path, opened afresh: what is open in the editor stays as it is.
std::vector<std::string> GridLinesOfFile(const std::string& jobPath = path);

std::vector<std::int32_t> Times();

// The job file as it stands.
Job InFile(const std::string& jobPath = path);

bool SameEvents(const std::vector<JobEvent>& a, const std::vector<JobEvent>& b);

// Selects rows as a click and a click with Shift do.
inline void Select(std::int32_t from, std::int32_t to) {
    SelectRows(from, to);
}
inline void Select(std::int32_t row) {
    SelectRows(row, row);
}

// Types into a field of the pane and presses its button.
void SetDelay(const std::string& ms);
void SetDuration(const std::string& ms);

// With Yes as the answer.
void Delete(std::int32_t from, std::int32_t to);
inline void Delete(std::int32_t row) {
    Delete(row, row);
}

}  // namespace edit_story
