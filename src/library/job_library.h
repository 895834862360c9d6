// The library of saved jobs is the data folder: every .tsj file in it is a job, called by its file name. There is no
// index file. The list of the job page, lista_jobs, has one row for each file that is a job. One that
// another program holds just now has its row too, and says so. Selecting a row raises
// the list's click event, and a bad file shows a box, so filling the list pumps.
#pragma once

#include <cstdint>
#include <string>

#include "jobs/job_file.h"
#include "widgets/list_model.h"

struct JobLibrary {
    ListModel lista_jobs;
    std::uint32_t fills = 0;  // calls of FillJobList so far; a call from within another one takes its place
};
extern JobLibrary jobLibrary;

namespace job_library {

// Rebuilds the list from the data folder, in the order of the names, and selects the first row. A file that fails its
// check gets a box at every call, and no row.
void FillJobList();

// The full path of the job of a row; a range failure for a row that does not exist.
std::string JobPathOfRow(int row);

// Selects the first row of this path (letter case ignored). Without such a row nothing changes.
void SelectJob(const std::string& path);

// A job has been written: fills the list anew and selects its row.
void ShowSavedJob(const std::string& path);

// A row's second line once its file can be read again.
void ShowSecondLine(int row, const JobHeaderCheck& check);

// The second line of a row: the description, or how long the job takes. The words are looked up once for all rows.
struct DurationWords {
    std::string label;
    std::string seconds;
};
DurationWords TranslatedDurationWords();
std::string SecondLine(const DurationWords& words, const std::string& description, std::int32_t durationMs);

// Whether the program starts with Windows, as the registry has it.
bool StartsWithWindows();
std::string StartWithWindowsCommand();
inline constexpr const char* RunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// Asks, then deletes the selected job with what hangs on it: its hotkey, its schedules, its shortcut on the desktop.
// The settings are saved before the last box. A job whose file cannot be deleted keeps all but its hotkey. A file
// failure when the settings cannot be written; the lists show the change all the same.
void DeleteJob();

}  // namespace job_library
