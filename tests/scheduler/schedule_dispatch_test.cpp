// Schedules run when their moment has come, once, and nothing else runs. Stories on the simulated clock.
#include "scheduler/schedule_dispatch.h"

#include <chrono>

#include "replay/run_job.h"
#include "schedule_stage.h"

namespace {

constexpr std::int64_t DayMs = 86'400'000;
const std::string settingsFile = "C:\\data\\settings.binary";

class Dispatch : public ScheduleStage {};

TEST_F(Dispatch, ActsByTheSecondsThatAreLeft) {
    const struct {
        int seconds;
        int interval;
        bool countdown;
        bool runs;
    } cases[] = {{65, 5000, false, false}, {64, 250, false, false}, {60, 250, false, false},
                 {59, 250, true, false},   {1, 250, true, false},   {0, 250, true, true},
                 {-1, 250, true, true},    {-999, 250, true, true}, {-1000, 5000, false, false}};
    AddDaily("A", "14:30:00");
    for (const auto& each : cases) {
        SCOPED_TRACE(each.seconds);
        platform::StopTimer(scheduleDispatch.sat);
        scheduleDispatch = {};
        schedule_start_form = {};
        scheduleViewsStandIn = {};
        typed.clear();
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        Begin();
        const int second = 52200 - each.seconds;
        simulated::SetLocalTime({2026, 11, 15, second / 3600, second / 60 % 60, second % 60});
        DispatchTick();
        EXPECT_EQ(scheduleDispatch.interval, each.interval);
        EXPECT_EQ(!scheduleViewsStandIn.starts.empty(), each.countdown);
        EXPECT_EQ(Letters(), each.runs ? "A" : "");
    }
}

TEST_F(Dispatch, CountsDownAndRunsAndKeepsAccount) {
    AddDaily("A", "14:30:00");
    Begin();
    EXPECT_EQ(scheduleDispatch.interval, 500);
    RunTo("14:29:30");
    EXPECT_THAT(scheduleViewsStandIn.starts, ElementsAre("Letter A|will start in 59 seconds"));
    EXPECT_EQ(scheduleViewsStandIn.start.status, "will start in 30 seconds...");
    RunTo("14:31:00");
    EXPECT_EQ(typed, "A 14:30:00\n");
    EXPECT_EQ(Saved()[0].last_run, "2026-11-15@14:30:00");
    EXPECT_EQ(Saved()[0].last_result, 1);
    EXPECT_EQ(Saved()[0].next_run, "2026-11-16@14:30:00");
    EXPECT_FALSE(scheduleViewsStandIn.start.shown);
    EXPECT_EQ(scheduleViewsStandIn.alphas.size(), 20U) << "180 and its fading";
    EXPECT_THAT(LogOf("A"), HasSubstr("14:29:01  Tessarine is preparing to execute schedule: 'Letter A' ...\r\n"
                                      "14:30:00  Job speed: 100"));
}

TEST_F(Dispatch, DoesNothingBeforeTheStartUpRunsAreOver) {
    AddDaily("A", "14:30:00");
    FillScheduleList();
    RunTo("14:33:00");
    EXPECT_EQ(typed, "");
    EXPECT_FALSE(simulated::FileBytes(settingsFile));
}

// --- a month, tick for tick ---

using namespace std::chrono;

struct Month {
    year_month_day from;
    int length;
};

std::string Text(local_days day) {
    const year_month_day date(day);
    return FormatDate(static_cast<int>(static_cast<unsigned>(date.day())),
                      static_cast<int>(static_cast<unsigned>(date.month())), static_cast<int>(date.year()));
}

void PrintTo(const Month& month, std::ostream* out) {
    *out << month.length << " days from " << Text(local_days(month.from));
}

// By the calendar of the standard library; day 31 of a short month comes in the month after.
bool IsDue(const Schedule& schedule, local_days day) {
    const year_month month = year_month_day(day).year() / year_month_day(day).month();
    const auto names = [&](year_month each) {
        return local_days(each / 1) + days(NumberIn(schedule.date_field) - 1) == day;
    };
    switch (schedule.schedule_type) {
        case ScheduleDaily:
            return true;
        case ScheduleWeekly:
            return (schedule.days_of_week >> weekday(day).c_encoding() & 1) != 0;
        case ScheduleMonthly:
            return names(month) || names(month - months(1));
        default:
            return schedule.date_field == Text(day);
    }
}

class AMonthGoesBy : public Dispatch, public testing::WithParamInterface<Month> {};

TEST_P(AMonthGoesBy, AndEachDueRunIsThereOnceAtItsSecond) {
    const local_days from(GetParam().from);
    simulated::SetLocalTime({static_cast<int>(GetParam().from.year()),
                             static_cast<int>(static_cast<unsigned>(GetParam().from.month())),
                             static_cast<int>(static_cast<unsigned>(GetParam().from.day())), 0, 0, 0});
    char letter = 'A';
    const auto add = [&](const Schedule& schedule) -> Schedule& { return Add(std::string(1, letter++), schedule); };
    for (const char* time : {"00:00:30", "07:59:59", "12:00:00", "23:58:00"}) {
        add({.schedule_type = ScheduleDaily, .start_time = time});
    }
    for (const int mask : {1, 2, 4, 8, 16, 32, 64, 0x2A}) {
        add({.schedule_type = ScheduleWeekly, .start_time = "09:00:00", .days_of_week = mask});
    }
    for (const char* day : {"1", "28", "29", "30", "31"}) {
        add({.schedule_type = ScheduleMonthly, .date_field = day, .start_time = "03:00:00"});
    }
    for (const int day : {1, 3}) {
        add({.schedule_type = ScheduleOnce, .date_field = Text(from + days(day)), .start_time = "20:00:00"});
    }
    add({.schedule_type = ScheduleDaily, .start_time = "10:00:00"}).enabled = 0;
    ASSERT_EQ(settings.Schedules.size(), 20U);

    std::vector<std::string> due;  // "2026-11-15@14:30:00 A"
    for (local_days day = from; day < from + days(GetParam().length); day += days(1)) {
        for (std::size_t i = 0; i < settings.Schedules.size(); ++i) {
            if (At(i).enabled == 0 || !IsDue(At(i), day)) continue;
            due.push_back(Text(day) + "@" + At(i).start_time + " " + static_cast<char>('A' + i));
        }
    }
    std::sort(due.begin(), due.end());
    std::vector<std::pair<std::string, std::string>> ran;  // last_run and letter
    for (char key = 'A'; key < letter; ++key) {
        simulated::OnKey(edit, key, [&ran, key] {
            ran.emplace_back(At(static_cast<std::size_t>(key - 'A')).last_run, std::string(1, key));
        });
    }
    Begin();
    simulated::RunFor(GetParam().length * DayMs);
    ASSERT_EQ(ran.size(), due.size());
    for (std::size_t i = 0; i < due.size(); ++i) {
        const std::string stamp = due[i].substr(0, StampLength);
        // Of two at the same second, the lower one comes right behind the upper one.
        const bool behindAnother = i > 0 && due[i - 1].starts_with(stamp);
        EXPECT_EQ(ran[i].second, due[i].substr(StampLength + 1)) << due[i];
        EXPECT_GE(ran[i].first, stamp);
        EXPECT_LE(SecondsBetween(ran[i].first, stamp), behindAnother ? 1 : 0) << due[i];
    }
}

INSTANTIATE_TEST_SUITE_P(Over, AMonthGoesBy,
                         testing::Values(Month{year(2026) / November / 1, 30}, Month{year(2024) / February / 27, 5},
                                         Month{year(2023) / February / 26, 7}, Month{year(2027) / December / 29, 6}));

// --- several at once ---

TEST_F(Dispatch, OneThatFallsDueDuringALongJobRunsAfterItUnlessItIsTooLate) {
    for (const int seconds : {300, 1200}) {
        settings.Schedules.clear();
        typed.clear();
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        AddDaily("A", "14:30:00");
        AddDaily("B", "14:32:00");
        PutJob("A", seconds);
        Begin();
        RunTo("14:55:00");
        EXPECT_EQ(typed, seconds == 300 ? "A 14:35:00\nB 14:35:01\n" : "A 14:50:00\n");
    }
    EXPECT_EQ(At(1).next_run, "2026-11-15@14:32:00");
}

// The user's own run goes on; what fell due in it is refused, told in the list, and comes again the next day.
TEST_F(Dispatch, OneThatFallsDueDuringTheUsersOwnRunLeavesThatAlone) {
    PutJob("U", 600);
    AddDaily("A", "14:05:00");
    AddDaily("B", "14:20:00");
    Begin();
    std::int32_t result = 0;
    simulated::After(1000, [&] { result = RunJob(JobPath("U"), 0, "", true); });
    RunTo("14:21:00");
    EXPECT_EQ(result, 1);
    EXPECT_THAT(typed, testing::MatchesRegex("U 14:10:0.\nB 14:20:00\n"));
    EXPECT_EQ(Saved()[0].last_run, "2026-11-15@14:05:00");
    EXPECT_EQ(Saved()[0].last_result, RunRefusedOrNoFile);
    EXPECT_EQ(Saved()[0].next_run, "2026-11-16@14:05:00");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(Dispatch, ACancelledRunGivesWayToTheNextInTheSameForm) {
    AddDaily("A", "14:30:00");
    AddDaily("B", "14:30:30");
    Begin();
    RunTo("14:29:40");
    CancelStart();
    EXPECT_EQ(Saved()[0].last_run, "2026-11-15@14:30:00") << "at its planned moment";
    EXPECT_EQ(Saved()[0].last_result, ScheduleCanceled);
    EXPECT_THAT(LogOf("A"), HasSubstr("14:29:40  User canceled start of scheduled job: Letter A"));
    RunTo("14:30:10");
    CancelStart();
    simulated::RunFor(500);
    EXPECT_FALSE(scheduleViewsStandIn.start.shown) << "the last cancel closes the form";
    EXPECT_THAT(scheduleViewsStandIn.starts,
                ElementsAre("Letter A|will start in 59 seconds", "Letter B|will start in 50 seconds"));
    EXPECT_THAT(LogOf("B"), Not(HasSubstr("Letter A")));
    simulated::RunFor(2 * DayMs);
    EXPECT_EQ(typed, "") << "silent for as long as the process lives";
    settings.Schedules = Saved();
    FillScheduleList();
    simulated::RunFor(DayMs);
    EXPECT_EQ(Letters(), "BA") << "and alive after a restart";
}

// The tick has not seen yet that the table is another one.
TEST_F(Dispatch, ACancelMeetsTheScheduleThatTheFormNames) {
    AddDaily("A", "14:00:00");
    AddDaily("B", "14:30:00");
    Begin();
    RunTo("14:29:40");
    DeleteSchedule(0);
    CancelStart();
    EXPECT_EQ(At(0).suppressed, 1);
    DeleteSchedule(0);
    CancelStart();
    RunTo("14:31:00");
    EXPECT_EQ(typed, "");
}

// --- what goes wrong ---

TEST_F(Dispatch, ARunThatFailsKeepsNoOtherFromRunning) {
    for (const bool missing : {true, false}) {
        settings.Schedules.clear();
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        AddDaily("A", "14:30:00");
        AddDaily("B", "14:40:00");
        Begin();
        if (missing) simulated::LosePath(JobPath("A"));
        if (!missing) simulated::PutFile(JobPath("A"), "damaged");
        RunTo("14:35:00");
        EXPECT_EQ(At(0).last_result, missing ? RunRefusedOrNoFile : ScheduleRunning) << "a failure is like a crash";
        EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
        RunTo("14:41:00");
    }
    EXPECT_EQ(Letters(), "BB");
    EXPECT_EQ(simulated::ShownBoxes().size(), 2U);
}

TEST_F(Dispatch, AScheduleLivesOnWhateverBecomesOfItsLog) {
    simulated::PutFolder("C:\\data\\A folder.log");
    simulated::PutFile("C:\\data\\Letter A.log", "old");
    simulated::LockFileAgainstReaders("C:\\data\\Letter A.log");
    simulated::LosePath("E:");
    AddDaily("A", "14:10:00");
    const std::string logs[] = {At(0).log_path, "C:\\data\\A folder.log", "E:\\Letter A.log", "", "\x01?*\"<"};
    std::string expected;
    for (const std::string& log : logs) {
        SCOPED_TRACE(log);
        settings.Schedules[0].log_path = log;
        simulated::SetLocalTime({2026, 11, 15, 14, 0, 0});
        Begin();
        RunTo("14:12:00");
        EXPECT_EQ(Letters(), expected += "A");
        EXPECT_EQ(Saved()[0].last_result, 1);
        EXPECT_EQ(Saved()[0].next_run, "2026-11-16@14:10:00");
    }
    EXPECT_THAT(Boxes(), IsEmpty());
}

// Told as a job that does not exist is; the schedule tries again the next day.
TEST_F(Dispatch, AJobOnADriveThatIsGoneRunsWhenTheDriveIsBack) {
    AddDaily("A", "14:10:00").job_path = "E:\\Jobs\\A.tsj";
    simulated::LosePath("E:");
    Begin();
    RunTo("14:12:00");
    EXPECT_THAT(Boxes(), ElementsAre("File access error|File does not exist:\r\nE:\\Jobs\\A.tsj"));
    EXPECT_EQ(Saved()[0].last_result, RunRefusedOrNoFile);
    EXPECT_EQ(Saved()[0].next_run, "2026-11-16@14:10:00");
    simulated::PutFile("E:\\Jobs\\A.tsj", *simulated::FileBytes(JobPath("A")));
    simulated::RunFor(DayMs);
    EXPECT_EQ(typed, "A 14:10:00\n");
}

TEST_F(Dispatch, ACrashInTheMiddleLeavesItsMarkAndIsNotCaughtUp) {
    AddDaily("A", "14:30:00");
    Begin();
    std::string crashed;
    simulated::OnKey(edit, 'A', [&] { crashed = simulated::FileBytes(settingsFile).value_or(""); });
    RunTo("14:30:05");
    simulated::PutFile(settingsFile, crashed);
    crashed.clear();
    LoadSettings();
    Begin();
    EXPECT_EQ(At(0).last_result, ScheduleRunning);
    EXPECT_EQ(At(0).last_run, "2026-11-15@14:30:00");
    EXPECT_EQ(At(0).next_run, "2026-11-16@14:30:00");
    RunTo("15:00:00");
    EXPECT_EQ(crashed, "") << "no second run";
}

TEST_F(Dispatch, AFullDiskKeepsNothingFromRunning) {
    AddDaily("A", "14:30:00");
    Begin();
    simulated::SetFreeSpace(0);
    RunTo("14:31:00");
    EXPECT_EQ(Letters(), "A");
    EXPECT_THAT(Boxes(), ElementsAre(HasSubstr("cannot be saved")));
}

// --- clocks ---

// As after a sleep of the machine, and in the hour that summer time leaves out.
TEST_F(Dispatch, WhatIsALittleLateRunsAndWhatIsLaterBlocksUntilTheListIsFilled) {
    AddDaily("A", "14:30:00");
    AddDaily("B", "16:30:00");
    AddDaily("C", "18:30:00");
    Begin();
    simulated::SetLocalTime({2026, 11, 15, 14, 46, 0});
    RunTo("14:47:00");
    EXPECT_EQ(Letters(), "A");
    simulated::SetLocalTime({2026, 11, 15, 16, 47, 0});
    RunTo("17:00:00");
    EXPECT_EQ(At(1).next_run, "2026-11-15@16:30:00");
    FillScheduleList();
    EXPECT_EQ(At(1).next_run, "2026-11-16@16:30:00");
    RunTo("18:31:00");
    EXPECT_EQ(Letters(), "AC");
}

// At two o'clock it is three. What was to come in the hour that is left out comes late, once, or is too late and
// blocks.
TEST_F(Dispatch, TheHourThatSummerTimeLeavesOutIsLikeAnyDelay) {
    for (const bool tooLate : {false, true}) {
        settings.Schedules.clear();
        typed.clear();
        simulated::SetLocalTime({2026, 3, 29, 1, 50, 0});
        AddDaily("A", "02:50:00");
        AddDaily("B", tooLate ? "02:30:00" : "03:10:00");
        AddDaily("C", "03:20:00");
        Begin();
        RunTo("01:59:59");
        simulated::RunFor(1000);
        simulated::SetLocalTime({2026, 3, 29, 3, 0, 0});
        RunTo("03:30:00");
        if (tooLate) {
            EXPECT_EQ(typed, "");
            EXPECT_EQ(At(1).next_run, "2026-03-29@02:30:00");
        } else {
            EXPECT_EQ(Letters(), "ABC");
            EXPECT_THAT(typed, StartsWith("A 03:00:0"));
            EXPECT_EQ(At(0).next_run, "2026-03-30@02:50:00");
        }
    }
}

// Runs that are still to come in the hour that is there twice come once, at the second of the two.
TEST_F(Dispatch, TheHourThatIsThereTwiceRunsEverythingOnce) {
    simulated::SetLocalTime({2026, 10, 25, 2, 0, 0});
    AddDaily("A", "02:10:00");
    AddDaily("B", "02:59:59");
    AddDaily("C", "03:00:00");
    Add("D", {.schedule_type = ScheduleOnce, .date_field = "2026-10-25", .start_time = "02:20:00"});
    Add("E", {.schedule_type = ScheduleWeekly, .start_time = "02:40:00", .days_of_week = 1});
    Begin();
    RunTo("02:59:58");
    simulated::SetLocalTime({2026, 10, 25, 2, 0, 0});
    RunTo("02:55:00");
    EXPECT_EQ(Letters(), "ADE");
    RunTo("03:10:00");
    EXPECT_EQ(typed, "A 02:10:00\nD 02:20:00\nE 02:40:00\nB 02:59:59\nC 03:00:00\n");
    for (const std::size_t each : {0U, 1U, 2U}) EXPECT_EQ(DateOf(At(each).next_run), "2026-10-26");
    EXPECT_EQ(At(4).next_run, "2026-11-01@02:40:00");
}

// As at the end of summer time.
TEST_F(Dispatch, WhatHasRunDoesNotRunAgainWhenTheClockIsSetBack) {
    for (const int afterMs : {10'000, 50'000}) {  // during the run, after it
        settings.Schedules.clear();
        typed.clear();
        simulated::SetLocalTime({2026, 10, 25, 2, 0, 0});
        AddDaily("A", "02:30:00");
        PutJob("A", 60);
        Begin();
        RunTo("02:30:30");
        simulated::After(afterMs, [] { simulated::SetLocalTime({2026, 10, 25, 2, 0, 0}); });
        simulated::RunFor(DayMs / 4);
        EXPECT_EQ(Letters(), "A") << afterMs;
        EXPECT_EQ(At(0).next_run, "2026-10-26@02:30:00");
    }
}

// --- quiet ---

TEST_F(Dispatch, AnIdleDayTouchesNoFile) {
    AddDaily("A", "13:00:00").enabled = 0;
    Add("B", {.schedule_type = ScheduleOnce, .date_field = "2020-01-01", .start_time = "13:00:00"});
    Begin();
    const std::int64_t before = simulated::FileOperations();
    simulated::RunFor(DayMs);
    settings.Schedules.clear();
    simulated::RunFor(DayMs);
    EXPECT_EQ(simulated::FileOperations(), before);
    EXPECT_EQ(scheduleDispatch.interval, 5000);
}

// What a damaged file may hold is listed and told, and none of it runs; what is whole beside it does.
TEST_F(Dispatch, RecordsOfAnyBytesRunNothing) {
    std::mt19937 random(11);
    const auto bytes = [&random](std::size_t most) {
        std::string text(random() % (most + 1), ' ');
        for (char& each : text) each = random() % 3 ? "0123456789-@: N"[random() % 15] : static_cast<char>(random());
        return text;
    };
    const auto number = [&random] { return static_cast<std::int32_t>(random() % 2 ? random() : random() % 6); };
    for (int i = 0; i < 400; ++i) {
        const Schedule damaged{.schedule_type = number(),
                               .date_field = bytes(10),
                               .start_time = random() % 2 ? "14:10:00" : bytes(8),
                               .when_computer_starts = random() % 2 ? 0 : number(),
                               .days_of_week = number(),
                               .next_run = random() % 2 ? "2026-11-15@14:10:00" : bytes(19),
                               .last_run = bytes(19),
                               .last_result = number()};
        if (!CanComeFromAUser(damaged)) Add("X", damaged).schedule_name = bytes(256);
    }
    AddDaily("A", "14:20:00");
    Begin();
    for (int row = 0; row < scheduleList.schedule_lista.ListCount(); ++row) scheduleList.schedule_lista.SelectItem(row);
    simulated::RunFor(DayMs / 2);
    EXPECT_EQ(Letters(), "A");
}

}  // namespace
