// Filling the job list from a thousand job files, against reading the front of each and adding as many rows.

#include <filesystem>

#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "jobs/job_file.h"
#include "library/job_library.h"
#include "library/library_view.h"
#include "platform/files.h"
#include "settings/folders.h"

// The program's main window, which is not there.

namespace library_view {

std::vector<std::string> Lista_Schedule;

void ClearScheduleJobs() {
    Lista_Schedule.clear();
}
void AddScheduleJob(const std::string& name) {
    Lista_Schedule.push_back(name);
}
void Jobs_Edit_Enabled(bool) {}
void ShowStartsWithWindows(bool) {}
void ShowDataFolder(const std::string&) {}

}  // namespace library_view

namespace {

constexpr int JobCount = 1000;
constexpr std::int64_t FrontSize = 2142;

std::string NameOf(int number) {
    return "A job like any other " + std::to_string(number);
}

std::string PathOf(int number) {
    return folders.DataFolder + "\\" + NameOf(number) + ".tsj";
}

void WriteJobs() {
    Job job;
    job.Events.resize(10);
    job.Events.back().time() = 12'345;
    for (int i = 0; i < JobCount; ++i) WriteJob(PathOf(i), job);
}

void FillList() {
    job_library::FillJobList();
    if (jobLibrary.lista_jobs.ListCount() != JobCount) posix_files::Stop("fill the list");
}

void ReadFrontsAndAddRows() {
    static ListModel list;
    list.Clear();
    char front[FrontSize];
    for (int i = 0; i < JobCount; ++i) {
        platform::File file = platform::File::OpenForReading(PathOf(i));
        if (file.Read(front, FrontSize) != FrontSize) posix_files::Stop("read a front");
        list.AddItem(NameOf(i), 0, "Duration: 12.3 seconds");
    }
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "library_bench", [] {
        std::filesystem::create_directories(posix_files::RealPath("C:\\jobs"));
        folders.DataFolder = "C:\\jobs";
        WriteJobs();
        bench::ReportRatio("fill the list / read 1000 fronts, add 1000 rows", FillList, ReadFrontsAndAddRows, 1.5);
    });
}
