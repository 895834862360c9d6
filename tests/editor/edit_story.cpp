#include "editor/edit_story.h"

#include "folding/fold.h"
#include "settings/folders.h"

namespace edit_story {

Job asOpened;

void Open(const Job& job) {
    simulated::PutFolder("C:\\jobs");
    folders.DataFolder = "C:\\jobs";
    WriteJob(path, job);
    editJob(path);
    asOpened = JobToSave(editState.header);
}

std::vector<std::string> GridLines() {
    std::vector<std::string> lines;
    for (std::int32_t row = 0; row < static_cast<std::int32_t>(editState.RowIndex.size()); ++row) {
        std::string line;
        for (const std::string& column : RowColumns(row)) line += column + "|";
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> GridLinesOfFile(const std::string& jobPath) {
    const EditState open = editState;
    PopuniListu(jobPath, false);
    std::vector<std::string> lines = GridLines();
    editState = open;
    return lines;
}

std::vector<std::int32_t> Times() {
    std::vector<std::int32_t> times;
    for (const JobEvent& event : editState.EditEvents) times.push_back(event.time());
    return times;
}

Job InFile(const std::string& jobPath) {
    Job job;
    ReadJob(jobPath, job);
    return job;
}

bool SameEvents(const std::vector<JobEvent>& a, const std::vector<JobEvent>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const JobEvent& x, const JobEvent& y) {
        return x.word == y.word && x.WindowChainIndex == y.WindowChainIndex && x.WaitForWindow == y.WaitForWindow &&
               x.IfNoWindow == y.IfNoWindow;
    });
}

void SetDelay(const std::string& ms) {
    DelayTyped(ms);
    delay_set_Click();
}

void SetDuration(const std::string& ms) {
    DurationTyped(ms);
    duration_set_Click();
}

void Delete(std::int32_t from, std::int32_t to) {
    Select(from, to);
    simulated::AnswerNextBox({.yes = true});
    delete_event();
}

}  // namespace edit_story
