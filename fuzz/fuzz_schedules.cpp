// Settings with schedules of any bytes, and the day after: the program starts with them, lists and tells them, and runs
// what a user has scheduled for the moment at which it runs, once, and nothing else. A calendar that shares no code
// with the program's says what that is.
//
// The input is the moment of the start and what else happens (6 bytes), and then the records.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <set>
#include <string>
#include <utility>

#include "base/runtime_failure.h"
#include "fuzz/quiet_desktop.h"
#include "fuzz/require.h"
#include "platform/clock.h"
#include "replay/replay_log.h"
#include "replay/run_job.h"
#include "scheduler/schedule_dispatch.h"
#include "scheduler/schedule_list.h"
#include "scheduler/schedule_start.h"
#include "scheduler/start_up_runs.h"
#include "scheduler/upcoming_schedule.h"
#include "settings/sample_settings.h"
#include "support/schedule_views_stand_in.h"

using namespace std::chrono;

namespace {

constexpr std::size_t HeadSize = 6;
constexpr std::size_t RecordBytes = 1366;
constexpr std::size_t JobPathAt = 294;  // in a record
constexpr std::size_t JobPathWidth = 512;
constexpr std::size_t MostSchedules = 8;
constexpr sys_days Earliest = year(2023) / January / 1;
constexpr std::uint32_t MinutesOfTenYears = 10 * 365 * 1440;
constexpr seconds LatestStart{999};

struct Day {
    sys_days start;
    bool withComputer = false;
    bool cancels = false;
    std::int64_t idleStepMs = 0;
    std::set<std::pair<std::size_t, sys_days>> ran;
} theDay;

std::string JobOf(std::size_t index) {
    return folders.DataFolder + "\\" + std::to_string(index) + ".tsj";
}

sys_seconds Now() {
    return sys_seconds(seconds(quiet::WallClock()));
}

// --- what a user can have meant ---

int Number(std::string text) {
    text = Trim(text);
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : -1;
}

// "hh:mm:ss" and nothing else; negative for anything else.
seconds StartTime(const std::string& text) {
    const auto digit = [&](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
    if (text.size() != 8 || text[2] != ':' || text[5] != ':') return seconds(-1);
    for (const std::size_t at : {0U, 1U, 3U, 4U, 6U, 7U}) {
        if (!digit(at)) return seconds(-1);
    }
    const int hour = Number(text.substr(0, 2)), minute = Number(text.substr(3, 2)), second = Number(text.substr(6, 2));
    if (hour > 23 || minute > 59 || second > 59) return seconds(-1);
    return hours(hour) + minutes(minute) + seconds(second);
}

std::string Text(sys_days day) {
    const year_month_day date(day);
    const auto twoDigits = [](unsigned number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return std::to_string(static_cast<int>(date.year())) + "-" + twoDigits(static_cast<unsigned>(date.month())) + "-" +
           twoDigits(static_cast<unsigned>(date.day()));
}

bool IsForWeekday(const Schedule& schedule, sys_days day) {
    return (schedule.days_of_week >> weekday(day).c_encoding() & 1) != 0;
}

// Day 31 of a short month comes in the month after.
bool IsForDayOfMonth(const Schedule& schedule, sys_days day) {
    const int number = Number(schedule.date_field);
    const year_month month = year_month_day(day).year() / year_month_day(day).month();
    const auto names = [&](year_month each) { return sys_days(each / 1) + days(number - 1) == day; };
    return number >= 1 && number <= 31 && (names(month) || names(month - months(1)));
}

bool IsForDay(const Schedule& schedule, sys_days day) {
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return true;
        case ScheduleWeekly:
            return IsForWeekday(schedule, day);
        case ScheduleMonthly:
            return IsForDayOfMonth(schedule, day);
        case ScheduleOnce:
            return schedule.date_field == Text(day);
        default:
            return false;
    }
}

// --- the run ---

// By the clock: for this moment, or for one that is a little late, and not for the second time.
void RequireDue(std::size_t index, const Schedule& schedule) {
    const seconds start = StartTime(schedule.start_time);
    Require(start >= seconds(0), "a run has a time");
    const sys_days today = floor<days>(Now());
    for (const sys_days day : {today, today - days(1)}) {
        const seconds late = Now() - (day + start);
        if (late < seconds(0) || late > LatestStart + seconds(1) || !IsForDay(schedule, day)) continue;
        Require(theDay.ran.insert({index, day}).second, "a run comes once");
        return;
    }
    Require(false, "a run is due");
}

void RequireMeantForTheStart(const Schedule& schedule) {
    Require(theDay.withComputer && schedule.when_computer_starts == 1, "at the computer's start alone");
    const sys_days today = theDay.start;  // it may have waited until after midnight
    const bool monthly = schedule.schedule_type == ScheduleMonthly;
    const auto day = static_cast<int>(static_cast<unsigned>(year_month_day(today).day()));
    Require(monthly ? Number(schedule.date_field) == day : IsForDay(schedule, today), "a run is for today");
}

}  // namespace

// In the place of the job runner. It takes a while.
RunState runState;

std::int32_t RunJob(const std::string& jobPath, std::int32_t, const std::string&, bool) {
    const auto index = static_cast<std::size_t>(std::stoi(BaseName(jobPath)));
    Require(jobPath == JobOf(index) && index < settings.Schedules.size(), "a run has the job of its schedule");
    const Schedule& schedule = settings.Schedules[index];
    Require(schedule.enabled != 0 && schedule.suppressed == 0, "neither disabled nor cancelled");
    if (schedule.when_computer_starts == 0) {
        RequireDue(index, schedule);
    } else {
        RequireMeantForTheStart(schedule);
    }
    platform::Sleep(20'000);
    return index % 2 == 0 ? 1 : -4;
}

namespace {

// --- the day ---

void PutSettings(const std::uint8_t* records, std::size_t size) {
    const std::size_t count = std::min(size / RecordBytes, MostSchedules);
    std::string bytes = SampleOptions().Int32(0).Int32(static_cast<std::int64_t>(count));
    const std::size_t first = bytes.size();
    bytes.append(reinterpret_cast<const char*>(records), count * RecordBytes);
    for (std::size_t i = 0; i < count; ++i) {
        simulated::PutFile(JobOf(i), "job");
        std::string path = JobOf(i);
        path.resize(JobPathWidth, ' ');
        bytes.replace(first + i * RecordBytes + JobPathAt, JobPathWidth, path);
    }
    simulated::PutFile(settingsPath, bytes);
}

void Forget() {
    quiet::StopAllTimers();
    scheduleDispatch = {};
    scheduleList = {};
    upcomingArea = {};
    schedule_start_form = {};
    startUpRuns = {};
    scheduleViewsStandIn = {};
    replayLog = {};
    theDay = {};
}

void Look() {
    FillScheduleList();
    for (int row = 0; row < scheduleList.schedule_lista.ListCount(); ++row) scheduleList.schedule_lista.SelectItem(row);
    const std::int32_t seconds = Upcoming_Schedules();
    Require(upcomingArea.upcoming_schedule == (seconds > 0), "what is upcoming is ahead");
}

void Start() {
    theDay.start = floor<days>(Now());
    LoadScheduleList();
    LoadSettings();
    Look();
    theDay.withComputer ? ComputerStartUp() : MarkStartUpRunsOver();
}

// The log may have a path that no file can have; the desktop shows what a button throws.
void Cancel() {
    const ScheduleMark cancelled = schedule_start_form.schedule;
    try {
        CancelStart();
    } catch (const RuntimeFailure& failure) {
        Require(failure.Kind() == FailureKind::File, "a log that cannot be written is a file failure");
    }
    const Schedule* const schedule = cancelled.Find();
    Require(schedule != nullptr && schedule->suppressed == 1, "it is cancelled all the same");
}

// A day and a little more: in long steps, or steps of a minute, and finer ones when a run is near.
void GoThroughTheDay() {
    const sys_seconds end = Now() + hours(26);
    sys_seconds nextLook = Now() + hours(5);
    for (int tick = 0; Now() < end; ++tick) {
        platform::Sleep(scheduleDispatch.interval == 5000 ? theDay.idleStepMs : 7'000);
        quiet::TickAllTimers();
        if (theDay.cancels && schedule_start_form.shown && tick % 3 == 0) Cancel();
        if (Now() < nextLook) continue;
        nextLook = Now() + hours(5);
        Look();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < HeadSize + RecordBytes) return 0;
    Forget();
    std::uint32_t minute = 0;
    std::memcpy(&minute, data, sizeof minute);
    quiet::SetWallClock(Earliest.time_since_epoch().count() * 86'400LL + minute % MinutesOfTenYears * 60LL +
                        data[4] % 60);
    theDay.withComputer = (data[5] & 1) != 0;
    theDay.cancels = (data[5] & 2) != 0;
    theDay.idleStepMs = (data[5] & 4) != 0 ? 59'000 : 540'000;
    for (const std::string& file : simulated::AllFiles()) simulated::LosePath(file);  // of the input before
    PutJobs();
    PutSettings(data + HeadSize, size - HeadSize);
    Start();
    GoThroughTheDay();
    LoadSettings();
    Require(settings.SettingsLoaded, "what was saved meanwhile can be loaded");
    return 0;
}
