// Schedules on the simulated clock: each has a job that types one letter of its own into Notepad, so that the journal
// tells which of them ran, and when.
#pragma once

#include <cstdio>

#include "jobs/job_file.h"
#include "replay/replay_log.h"
#include "replay/run_job.h"
#include "scheduler/calendar.h"
#include "scheduler/date_text.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_start.h"
#include "scheduler/schedule_table.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/schedule_views_stand_in.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

inline constexpr std::int64_t SecondMs = 1000;
inline constexpr std::int64_t MinuteMs = 60 * SecondMs;
inline constexpr std::int64_t HourMs = 60 * MinuteMs;
inline constexpr std::int64_t DayMs = 24 * HourMs;

class ScheduleStage : public testing::Test {
protected:
    ScheduleStage() {
        folders.DataFolder = "C:\\data";
        simulated::PutFolder(folders.DataFolder);
        settings.Display_Executing_Status = 0;
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});  // a Sunday
        const platform::Rect place = {100, 100, 700, 500};
        notepad = simulated::AddWindow({.className = "Notepad", .caption = "Untitled - Notepad", .rect = place});
        edit = simulated::AddWindow({.className = "Edit", .rect = {0, 0, 600, 400}, .parent = notepad});
        simulated::SetFocus(edit);
    }

    static std::string JobPath(const std::string& letter) { return folders.DataFolder + "\\" + letter + ".tsj"; }
    static std::string LogPath(const std::string& name) { return folders.DataFolder + "\\" + name + ".log"; }

    // A job that types this letter, once `seconds` have passed.
    void PutJob(const std::string& letter, int seconds = 0) {
        JobBuilder job;
        job.InWindow({"Edit", "", 0, platform::PlacementOf(edit)},
                     {"Notepad", "Untitled - Notepad", 0, platform::PlacementOf(notepad)});
        job.Type("").Wait(seconds * 1000).Type(letter);
        WriteJob(JobPath(letter), job.Built());
    }

    // Adds a schedule "Letter a" for the job "a" and its like; what is given is kept.
    Schedule& Add(Schedule schedule, const std::string& letter = "a") {
        PutJob(letter);
        schedule.schedule_name = "Letter " + letter;
        schedule.job_path = JobPath(letter);
        schedule.log_path = LogPath(schedule.schedule_name);
        schedule.enabled = -1;
        settings.Schedules.push_back(schedule);
        return settings.Schedules.back();
    }
    Schedule& AddDaily(const std::string& time, const std::string& letter = "a") {
        return Add({.schedule_type = ScheduleDaily, .start_time = time}, letter);
    }

    // As the start of the program does it.
    static void Begin() {
        FillScheduleList();
        MarkStartUpRunsOver();
    }

    static void RunTo(const platform::LocalTime& moment) {
        const std::int64_t seconds = SecondsBetween(StampText(moment), NowStamp());
        simulated::RunFor(seconds * SecondMs);
    }

    // Every letter that was typed, with the moment of the wall clock.
    struct Typed {
        std::string letter;
        std::string moment;
        friend bool operator==(const Typed&, const Typed&) = default;
        friend void PrintTo(const Typed& typed, std::ostream* out) { *out << typed.letter << " " << typed.moment; }
    };
    std::vector<Typed> typed;

    // Call before the story: writes down what reaches the editor.
    void Listen() {
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            simulated::OnKey(edit, letter, [this, letter] {
                typed.push_back({std::string(1, static_cast<char>(letter + 32)), NowStamp()});
            });
        }
    }

    static const Schedule& At(std::size_t index) { return settings.Schedules.at(index); }
    static std::string LogOf(const std::string& name) { return simulated::FileBytes(LogPath(name)).value_or(""); }

    // The schedules as the file has them.
    static std::vector<Schedule> Saved() {
        const Settings inMemory = settings;
        LoadSettings();
        return std::exchange(settings, inMemory).Schedules;
    }

    platform::WindowHandle notepad = 0;
    platform::WindowHandle edit = 0;
};
