// The schedule page: schedules are built, saved, edited, listed and deleted.
#include "scheduler/schedule_page.h"

#include "jobs/job_name.h"
#include "schedule_stage.h"
#include "scheduler/upcoming_schedule.h"
#include "support/wording.h"

namespace {

class Page : public ScheduleStage {
protected:
    Page() {
        LoadScheduleList();
        PrirediSchedules();
        for (const char* job : {"Backup", "Letter"}) {
            PutJob(job);
            AddJobToSchedule(job);
        }
        FillScheduleList();
    }

    // A new schedule of a type (Combo1's row) for the first job, ready to be saved under the name that the page gives.
    static void Build(int type) {
        Option11();
        ChooseJobToSchedule(0);
        ChooseType(type);
    }

    static void SaveAs(const std::string& name) {
        TypeScheduleName(name);
        SaveScheduleChanges();
    }

    static ListModel& List() { return scheduleList.schedule_lista; }
    static ScheduleInfo Select(int row) {
        List().SelectItem(row);
        return scheduleList.info;
    }
};

TEST_F(Page, ASavedScheduleHasWhatThePageHad) {
    Build(0);
    EXPECT_EQ(schedulePage.schedule_save_as, "Backup - Daily");
    EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("focus schedule_save_as"));
    SetStartTime("14:30:00");
    SaveScheduleChanges();
    EXPECT_EQ(LastBox(), "Tessarine|Schedule has been created successfully!");
    EXPECT_TRUE(schedulePage.old_schedule) << "the list is shown";
    EXPECT_FALSE(schedulePage.schedule_save_changes);
    ASSERT_EQ(Saved().size(), 1U);
    const Schedule saved = At(0);
    EXPECT_EQ(saved.schedule_type, ScheduleDaily);
    EXPECT_EQ(saved.schedule_name, "Backup - Daily");
    EXPECT_EQ(saved.start_time, "14:30:00");
    EXPECT_EQ(saved.job_path, "C:\\data\\Backup.tsj");
    EXPECT_EQ(saved.log_path, "C:\\data\\Backup - Daily.log");
    EXPECT_EQ(saved.enabled, -1);
    EXPECT_EQ(saved.next_run, "2026-11-15@14:30:00") << "the fill of the list computes it";
    EXPECT_TRUE(upcomingArea.upcoming_schedule);
    EXPECT_EQ(upcomingArea.will_start_in, "30 minutes, 0 seconds");
    simulated::RunFor(2 * SecondMs);
    EXPECT_EQ(upcomingArea.will_start_in, "29 minutes, 58 seconds");
}

TEST_F(Page, EachTypeTellsItsDaysAndIsEditedAsItWasSaved) {
    Build(1);
    EXPECT_FALSE(schedulePage.schedule_save_changes) << "no day yet";
    SaveScheduleChanges();
    EXPECT_EQ(LastBox(), "Invalid selection|You must select at least one day of the week");
    for (const int day : {1, 2, 7}) ClickDay(day, true);
    SaveAs("weekly");
    Build(2);
    SetMonthlyDay(31);
    SaveAs("monthly");
    Build(3);
    EXPECT_EQ(schedulePage.once_date, "2026-11-15");
    ChangeOnceDate("2026-11-14");
    EXPECT_EQ(LastBox(), "Invalid date|Please select date greater or equal of today");
    ChangeOnceDate("2027-01-02");
    SaveAs("once");
    Build(0);
    ChooseWhenToStart(true);
    ClickItemsLoaded(true);
    ClickOnlyOnce(true);
    SaveAs("start");

    std::vector<std::string> rows;
    for (int row = 0; row < List().ListCount(); ++row) rows.push_back(List().List(row) + "|" + List().Row(row).Text2);
    EXPECT_THAT(rows, ElementsAre("weekly; Job: Backup|Weekly; on: Sun,Mon,Sat at: 12:00:00",
                                  "monthly; Job: Backup|Monthly ; on day 31. of every month at: 12:00:00",
                                  "once; Job: Backup|One time only, on:  on 2027-01-02 at: 12:00:00",
                                  "start; Job: Backup|Daily at: when computer starts"));

    const std::vector<Schedule> saved = settings.Schedules;
    EXPECT_EQ(saved[0].days_of_week, 1 + 2 + 64);
    EXPECT_EQ(saved[3].when_computer_starts, 1);
    EXPECT_EQ(saved[3].wait_items_loaded, 1);
    EXPECT_EQ(saved[3].only_once_per_day, 1);
    for (std::ptrdiff_t i = 0; i < 4; ++i) {
        schedulePage.option_day = {};
        schedulePage.panels = {};
        schedulePage.monthly_day = 1;
        EditSchedule(i);
        EXPECT_FALSE(schedulePage.schedule_save_changes);
        EXPECT_FALSE(schedulePage.old_schedule);
        simulated::AnswerNextBox({.yes = true});
        SaveScheduleChanges();
        const auto place = static_cast<std::size_t>(i);
        const auto text = [](const Schedule& each) {
            return each.schedule_name + each.date_field + each.start_time + std::to_string(each.days_of_week) +
                   std::to_string(each.when_computer_starts) + std::to_string(each.wait_items_loaded) +
                   std::to_string(each.only_once_per_day) + each.job_path + each.next_run;
        };
        EXPECT_EQ(text(At(place)), text(saved[place]));
    }
    EXPECT_EQ(settings.Schedules.size(), 4U);
}

TEST_F(Page, OneOfTheSameNameIsReplacedWholeWhenTheUserWantsIt) {
    Build(0);
    SaveAs("Daily one");
    settings.Schedules[0].last_run = "2026-11-14@12:00:00";
    settings.Schedules[0].last_result = 3;
    settings.Schedules[0].suppressed = 1;
    Build(2);
    simulated::AnswerNextBox({.yes = false});
    SaveAs("DAILY ONE ");
    EXPECT_EQ(LastBox(), "Overwrite?|Overwrite schedule \"DAILY ONE\"?");
    EXPECT_EQ(At(0).schedule_type, ScheduleDaily);
    simulated::AnswerNextBox({.yes = true});
    SaveScheduleChanges();
    ASSERT_EQ(settings.Schedules.size(), 1U);
    EXPECT_EQ(At(0).schedule_type, ScheduleMonthly);
    EXPECT_EQ(At(0).last_run, "");
    EXPECT_EQ(At(0).last_result, 0);
    EXPECT_EQ(At(0).suppressed, 0);
}

TEST_F(Page, ANameThatNoFileCanHaveIsRefused) {
    const std::string names[] = {"a/b", "a\\b", "a:b", "what?", "", " ", "con", "ends.", std::string(256, 'x')};
    for (const std::string& name : names) {
        Build(0);
        scheduleViewsStandIn.calls.clear();
        SaveAs(name);
        EXPECT_THAT(LastBox(), StartsWith("Invalid file name|Schedule name you have selected is not valid. Please "
                                          "select another one."))
            << name;
        EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("focus schedule_save_as"));
    }
    EXPECT_THAT(settings.Schedules, IsEmpty());
}

TEST_F(Page, ScheduleThatCannotBeWrittenIsInTheListAllTheSame) {
    simulated::SetFreeSpace(0);
    Build(0);
    EXPECT_THROW(SaveScheduleChanges(), RuntimeFailure);
    EXPECT_EQ(List().ListCount(), 1);
    EXPECT_EQ(At(0).next_run, "2026-11-16@12:00:00");
}

TEST_F(Page, TheSelectedRowIsTold) {
    struct Case {
        std::string time;
        std::string lastRun;
        std::int32_t lastResult;
        std::string next;
        std::string info;
    };
    const Case cases[] = {
        {"14:30:00", "", 0, "Today at: 14:30:00", "never"},
        {"12:00:00", "2026-01-05@09:08:07", 3, "Tomorrow at: 12:00:00", "1.5.2026 09:08:07 completed"},
        {"12:00:00", "2026-11-15@12:00:00", -100, "Tomorrow at: 12:00:00", "11.15.2026 12:00:00 failed"}};
    AddDaily("");
    for (const Case& each : cases) {
        settings.Schedules[0].start_time = each.time;
        settings.Schedules[0].last_run = each.lastRun;
        settings.Schedules[0].last_result = each.lastResult;
        FillScheduleList();
        const ScheduleInfo info = Select(0);
        EXPECT_EQ(info.next_run, each.next);
        std::string told = info.last_run_info_never ? "never" : info.Label29 + " " + info.Label27;
        if (info.status_completed) told += " completed";
        if (info.status_failed) told += " failed";
        EXPECT_EQ(told, each.info);
    }
    Add({.schedule_type = ScheduleOnce, .date_field = "2020-01-01", .start_time = "12:00:00"}, "b");
    Add({.schedule_type = ScheduleDaily, .when_computer_starts = 1}, "c");
    Add({.schedule_type = ScheduleMonthly, .date_field = "5", .start_time = "12:00:00"}, "d");
    FillScheduleList();
    EXPECT_EQ(Select(1).next_run, "0.0.0 at: Never") << "which stays so";
    EXPECT_EQ(Select(2).next_run, "Tomorrow at: system startup");
    EXPECT_EQ(Select(3).next_run, "12.5.2026 at: 12:00:00");
}

TEST_F(Page, ARowIsDisabledAndEnabled) {
    AddDaily("14:30:00");
    FillScheduleList();
    Begin();
    EXPECT_EQ(List().GetIcon(0), 3);
    Select(0);
    EnableOrDisableSchedule();
    EXPECT_EQ(Saved()[0].enabled, 0);
    EXPECT_EQ(List().GetIcon(0), 6);
    EXPECT_EQ(List().Row(0).gumb, "Enable");
    FillScheduleList();
    EXPECT_EQ(List().GetIcon(0), 6);
    EXPECT_EQ(At(0).next_run, "2026-11-15@14:30:00") << "is told, although it will not run";
    Listen();
    RunTo({2026, 11, 15, 14, 31, 0});
    EXPECT_THAT(typed, IsEmpty());
    Select(0);
    EnableOrDisableSchedule();
    EXPECT_EQ(Saved()[0].enabled, -1);
    EXPECT_EQ(List().Row(0).gumb, "Disable");
}

TEST_F(Page, ADeletedRowGivesTheSelectionOn) {
    for (const char* letter : {"a", "b", "c"}) AddDaily("14:30:00", letter);
    FillScheduleList();
    Select(1);
    simulated::AnswerNextBox({.yes = false});
    Menu_Schedule_Delete();
    EXPECT_EQ(LastBox(), "Delete schedule?|Are you sure you want to delete schedule 'Letter b'?");
    EXPECT_EQ(settings.Schedules.size(), 3U);
    simulated::AnswerNextBox({.yes = true});
    Menu_Schedule_Delete();
    EXPECT_EQ(List().listindex(), 1);
    EXPECT_EQ(At(1).schedule_name, "Letter c");
    EXPECT_EQ(Saved().size(), 2U);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(List().listindex(), 1 - i);
        simulated::AnswerNextBox({.yes = true});
        Menu_Schedule_Delete();
    }
    EXPECT_EQ(List().ListCount(), 0);
    EXPECT_EQ(scheduleList.info.next_run, "");
    EXPECT_FALSE(scheduleList.info.last_run_info_never);
    Menu_Schedule_Delete();  // nothing is selected
}

TEST_F(Page, TheMenuComesOnTheRowUnderTheMouse) {
    AddDaily("14:30:00", "a");
    AddDaily("14:30:00", "b");
    FillScheduleList();
    const platform::Rect row = List().RowRect(1);
    List().PressMouse(ListButton::Right, {row.left + 5, row.top + 5});
    EXPECT_EQ(List().listindex(), 1);
    EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("menu"));
    Listen();
    Menu_Schedule_Run();
    ASSERT_EQ(typed.size(), 1U);
    EXPECT_EQ(typed[0].letter, "b");
    EXPECT_EQ(At(1).last_run, "");
    EXPECT_EQ(LogOf("Letter b"), "");
}

TEST_F(Page, TheLogIsOpenedOrItIsToldThatThereIsNone) {
    AddDaily("14:30:00", "a");
    FillScheduleList();
    ViewScheduleLog();
    EXPECT_THAT(Boxes(), IsEmpty()) << "nothing is selected";
    Select(0);
    ViewScheduleLog();
    EXPECT_EQ(LastBox(),
              "File not found|Cannot find log file:\r\nC:\\data\\Letter a.log\r\nPress OK to close this warning");
    simulated::PutFile(LogPath("Letter a"), "log");
    ViewScheduleLog();
    ASSERT_EQ(simulated::StartedPrograms().size(), 1U);
    EXPECT_EQ(simulated::StartedPrograms()[0].commandLine, "notepad C:\\data\\Letter a.log");
}

TEST_F(Page, TheJobPageAndTheUpcomingAreaLeadToIt) {
    ScheduleJob("letter");
    EXPECT_EQ(schedulePage.Lista_Schedule, 1);
    EXPECT_TRUE(schedulePage.perform_this_job);
    EXPECT_EQ(schedulePage.Combo1, NoType);
    EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("focus Combo1"));
    Build(0);
    SetStartTime("18:00:00");
    SaveAs("Evening");
    Build(0);
    SetStartTime("15:00:00");
    SaveAs("Afternoon");
    Option11();
    ScheduleCommand6();
    EXPECT_EQ(List().listindex(), 1);
    EXPECT_EQ(schedulePage.schedule_save_as, "Afternoon");
    EXPECT_EQ(schedulePage.panels[0].start_time, "15:00:00");
}

TEST_F(Page, SpeaksEveryLanguage) {
    for (const int language : AllLanguages) {
        SetLanguage(language);
        settings.Schedules.clear();
        Build(0);
        SaveScheduleChanges();
        EXPECT_THAT(FaultsOfLastBox(), IsEmpty());
        ASSERT_EQ(settings.Schedules.size(), 1U) << schedulePage.schedule_save_as;
        simulated::AnswerNextBox({.yes = false});
        SaveScheduleChanges();
        EXPECT_THAT(FaultsOfLastBox(), IsEmpty());
        Select(0);
        EXPECT_THAT(FaultsOf(scheduleList.info.next_run), IsEmpty());
        ViewScheduleLog();
        EXPECT_THAT(FaultsOfLastBox(), IsEmpty());
    }
}

}  // namespace
