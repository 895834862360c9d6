// Schedules on the simulated clock: each has a job that types one letter of its own into Notepad, and `typed` tells
// which of them ran, and when.
#pragma once

#include "jobs/job_file.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_start.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/schedule_views_stand_in.h"
#include "support/story.h"

class ScheduleStage : public testing::Test {
protected:
    ScheduleStage() {
        folders.DataFolder = "C:\\data";
        simulated::PutFolder(folders.DataFolder);
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});  // a Sunday
        notepad = simulated::AddWindow({.className = "Notepad", .caption = "Untitled - Notepad"});
        edit = simulated::AddWindow({.className = "Edit", .parent = notepad});
        simulated::SetFocus(edit);
        for (char key = 'A'; key <= 'Z'; ++key) {
            simulated::OnKey(edit, key,
                             [this, key] { typed += std::string(1, key) + " " + TimeOf(NowStamp()) + "\n"; });
        }
    }

    std::string typed;  // "A 14:30:00\n"

    std::string Letters() const {
        std::string letters;
        for (std::size_t at = 0; at < typed.size(); at = typed.find('\n', at) + 1) letters += typed[at];
        return letters;
    }

    static std::string JobPath(const std::string& letter) { return folders.DataFolder + "\\" + letter + ".tsj"; }
    static std::string LogOf(const std::string& letter) {
        return simulated::FileBytes(folders.DataFolder + "\\Letter " + letter + ".log").value_or("");
    }

    // A job that types this letter, once `seconds` have passed.
    void PutJob(const std::string& letter, int seconds = 0) {
        JobBuilder job;
        job.InWindow({"Edit", "", 0, platform::PlacementOf(edit)},
                     {"Notepad", "Untitled - Notepad", 0, platform::PlacementOf(notepad)});
        WriteJob(JobPath(letter), job.Wait(seconds * 1000).Type(letter).Built());
    }

    // Adds a schedule "Letter A" for the job "A" and its like.
    Schedule& Add(const std::string& letter, Schedule schedule) {
        PutJob(letter);
        schedule.schedule_name = "Letter " + letter;
        schedule.job_path = JobPath(letter);
        schedule.log_path = folders.DataFolder + "\\" + schedule.schedule_name + ".log";
        schedule.enabled = -1;
        return settings.Schedules.emplace_back(schedule);
    }
    Schedule& AddDaily(const std::string& letter, const std::string& time) {
        return Add(letter, {.schedule_type = ScheduleDaily, .start_time = time});
    }

    static const Schedule& At(std::size_t index) { return settings.Schedules.at(index); }

    // The schedules as the file has them.
    static std::vector<Schedule> Saved() {
        const Settings inMemory = settings;
        LoadSettings();
        return std::exchange(settings, inMemory).Schedules;
    }

    // As the start of the program does it.
    static void Begin() {
        FillScheduleList();
        MarkStartUpRunsOver();
    }

    // Today, on the simulated clock.
    static void RunTo(const std::string& time) {
        simulated::RunFor(SecondsBetween(TodayText() + "@" + time, NowStamp()) * std::int64_t{1000});
    }

    platform::WindowHandle notepad = 0;
    platform::WindowHandle edit = 0;
};
