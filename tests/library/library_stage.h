// A data folder with jobs, and a desktop.
#pragma once

#include "jobs/job_file.h"
#include "library/job_library.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/library_view_stand_in.h"
#include "support/story.h"

class LibraryStage : public testing::Test {
protected:
    LibraryStage() {
        folders.DataFolder = "C:\\jobs";
        folders.DesktopFolder = "C:\\desktop";
        folders.ProgramFolder = "C:\\Program Files\\Tessarine";
        simulated::PutFolder(folders.DataFolder);
        simulated::PutFolder(folders.DesktopFolder);
    }

    static std::string PathOf(const std::string& name) { return folders.DataFolder + "\\" + name + ".tsj"; }
    static std::string LinkOf(const std::string& name) { return folders.DesktopFolder + "\\" + name + ".lnk"; }

    static void PutJob(const std::string& name, std::int32_t durationMs = 0, const std::string& description = "") {
        Job job;
        job.Description = description;
        job.Events.resize(1);
        job.Events[0].time() = durationMs;
        WriteJob(PathOf(name), job);
        job_library::ShowSavedJob(PathOf(name));
    }

    // "name: second line" of every row.
    static std::vector<std::string> Rows() {
        const ListModel& list = jobLibrary.lista_jobs;
        std::vector<std::string> rows;
        rows.reserve(static_cast<std::size_t>(list.ListCount()));
        for (int i = 0; i < list.ListCount(); ++i) rows.push_back(list.List(i) + ": " + list.Row(i).Text2);
        return rows;
    }
};
