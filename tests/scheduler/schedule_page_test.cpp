// The schedule page: schedules are built, saved, edited, listed and deleted.
#include "scheduler/schedule_page.h"

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

    // A new schedule of a type (Combo1's row) for the first job.
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
    static void DeleteSelected(bool sure) {
        simulated::AnswerNextBox({.yes = sure});
        Menu_Schedule_Delete();
    }
};

TEST_F(Page, ASavedScheduleHasWhatThePageHad) {
    Build(0);
    SetStartTime("14:30:00");
    SaveScheduleChanges();
    EXPECT_EQ(LastBox(), "Tessarine|Schedule has been created successfully!");
    EXPECT_TRUE(schedulePage.old_schedule) << "the list is shown";
    ASSERT_EQ(Saved().size(), 1U);
    EXPECT_EQ(At(0).schedule_name, "Backup - Daily");
    EXPECT_EQ(At(0).job_path, "C:\\data\\Backup.tsj");
    EXPECT_EQ(At(0).log_path, "C:\\data\\Backup - Daily.log");
    EXPECT_EQ(At(0).enabled, -1);
    EXPECT_EQ(At(0).next_run, "2026-11-15@14:30:00") << "the fill of the list computes it";
    EXPECT_EQ(upcomingArea.will_start_in, "30 minutes, 0 seconds");
    simulated::RunFor(2000);
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
    const auto text = [](const Schedule& each) {
        return each.date_field + each.start_time + std::to_string(each.days_of_week) +
               std::to_string(each.when_computer_starts * 4 + each.wait_items_loaded * 2 + each.only_once_per_day);
    };
    EXPECT_EQ(text(At(0)), "12:00:00670");
    EXPECT_EQ(text(At(3)), "12:00:0007");
    const std::vector<Schedule> saved = settings.Schedules;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        schedulePage.option_day = {};
        PrirediSchedules();
        EditSchedule(static_cast<std::ptrdiff_t>(i));
        simulated::AnswerNextBox({.yes = true});
        SaveScheduleChanges();
        EXPECT_EQ(text(At(i)), text(saved[i]));
    }
    EXPECT_EQ(settings.Schedules.size(), 4U);
}

TEST_F(Page, OneOfTheSameNameIsReplacedWholeWhenTheUserWantsIt) {
    Build(0);
    SaveAs("Daily one");
    settings.Schedules[0].last_run = "2026-11-14@12:00:00";
    settings.Schedules[0].suppressed = 1;
    Build(2);
    SaveAs("DAILY ONE ");
    EXPECT_EQ(LastBox(), "Overwrite?|Overwrite schedule \"DAILY ONE\"?");
    EXPECT_EQ(At(0).schedule_type, ScheduleDaily) << "the user said no";
    simulated::AnswerNextBox({.yes = true});
    SaveScheduleChanges();
    ASSERT_EQ(settings.Schedules.size(), 1U);
    EXPECT_EQ(At(0).schedule_type, ScheduleMonthly);
    EXPECT_EQ(At(0).last_run, "");
    EXPECT_EQ(At(0).suppressed, 0);
}

TEST_F(Page, WhatCannotBeSavedIsToldAndNothingIsLost) {
    for (const std::string& name : {std::string("a/b"), std::string("a\\b"), std::string(" "), std::string("con"),
                                    std::string("ends."), std::string(256, 'x')}) {
        Build(0);
        SaveAs(name);
        EXPECT_THAT(LastBox(), StartsWith("Invalid file name|Schedule name you have selected is not valid.")) << name;
        EXPECT_EQ(scheduleViewsStandIn.calls.back(), "focus schedule_save_as");
    }
    EXPECT_THAT(settings.Schedules, IsEmpty());
    simulated::SetFreeSpace(0);
    EXPECT_THROW(SaveAs("good"), RuntimeFailure);
    EXPECT_EQ(List().ListCount(), 1);
    EXPECT_EQ(At(0).next_run, "2026-11-16@12:00:00");
}

TEST_F(Page, TheSelectedRowIsTold) {
    AddDaily("A", "14:30:00").last_run = "2026-01-05@09:08:07";
    AddDaily("B", "12:00:00");
    Add("C", {.schedule_type = ScheduleOnce, .date_field = "2020-01-01", .start_time = "12:00:00"});
    Add("D", {.schedule_type = ScheduleDaily, .when_computer_starts = 1});
    Add("E", {.schedule_type = ScheduleMonthly, .date_field = "5", .start_time = "12:00:00"});
    FillScheduleList();
    EXPECT_EQ(Select(0).next_run, "Today at: 14:30:00");
    EXPECT_EQ(Select(0).Label29 + " " + Select(0).Label27, "1.5.2026 09:08:07");
    EXPECT_TRUE(Select(0).status_failed);
    settings.Schedules[0].last_result = 3;
    EXPECT_TRUE(Select(0).status_completed);
    EXPECT_TRUE(Select(1).last_run_info_never);
    EXPECT_EQ(Select(1).next_run, "Tomorrow at: 12:00:00");
    EXPECT_EQ(Select(2).next_run, "0.0.0 at: Never") << "which stays so";
    EXPECT_EQ(Select(3).next_run, "Tomorrow at: system startup");
    EXPECT_EQ(Select(4).next_run, "12.5.2026 at: 12:00:00");
}

TEST_F(Page, FollowsTheLanguageWithoutAnotherChange) {
    AddDaily("A", "14:30:00").enabled = 0;
    FillScheduleList();
    Select(0);
    settings.Schedules[0].next_run = "2020-01-02@03:04:05";
    SetLanguage(LanguageGerman);
    RewordScheduleList();
    EXPECT_THAT(List().Row(0).Text, HasSubstr("Aufgabe: "));
    EXPECT_THAT(List().Row(0).Text2, HasSubstr("glich"));
    EXPECT_EQ(List().Row(0).gumb, "Aktivieren");
    EXPECT_EQ(scheduleList.info.next_run, "1.2.2020 um: 03:04:05");
    EXPECT_EQ(settings.Schedules[0].next_run, "2020-01-02@03:04:05") << "it is not computed anew";
    EXPECT_EQ(List().listindex(), 0);
}

TEST_F(Page, ARowIsDisabledAndEnabled) {
    AddDaily("A", "14:30:00");
    Begin();
    for (const bool enabled : {false, true}) {
        Select(0);
        EnableOrDisableSchedule();
        FillScheduleList();
        EXPECT_EQ(Saved()[0].enabled, enabled ? -1 : 0);
        EXPECT_EQ(List().GetIcon(0), enabled ? 3 : 6);
        EXPECT_EQ(List().Row(0).gumb, enabled ? "" : "Enable");
        EXPECT_EQ(At(0).next_run, "2026-11-15@14:30:00") << "is told, whether it will run or not";
    }
}

TEST_F(Page, ADeletedRowGivesTheSelectionOn) {
    for (const char* letter : {"A", "B", "C"}) AddDaily(letter, "14:30:00");
    FillScheduleList();
    Select(1);
    DeleteSelected(false);
    EXPECT_EQ(LastBox(), "Delete schedule?|Are you sure you want to delete schedule 'Letter B'?");
    EXPECT_EQ(settings.Schedules.size(), 3U);
    DeleteSelected(true);
    EXPECT_EQ(List().listindex(), 1);
    EXPECT_EQ(Saved()[1].schedule_name, "Letter C");
    DeleteSelected(true);
    EXPECT_EQ(List().listindex(), 0);
    DeleteSelected(true);
    EXPECT_EQ(scheduleList.info.next_run, "");
    DeleteSelected(true);  // nothing is selected
    EXPECT_EQ(simulated::ShownBoxes().size(), 4U);
}

TEST_F(Page, TheMenuComesOnTheRowUnderTheMouse) {
    AddDaily("A", "14:30:00");
    AddDaily("B", "14:30:00");
    FillScheduleList();
    const platform::Rect row = List().RowRect(1);
    List().PressMouse(ListButton::Right, {row.left + 5, row.top + 5});
    EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("menu"));
    Menu_Schedule_Run();
    EXPECT_EQ(Letters(), "B");
    EXPECT_EQ(At(1).last_run + LogOf("B"), "");
    ViewScheduleLog();
    EXPECT_EQ(LastBox(),
              "File not found|Cannot find log file:\r\nC:\\data\\Letter B.log\r\nPress OK to close this warning");
    simulated::PutFile("C:\\data\\Letter B.log", "log");
    ViewScheduleLog();
    ASSERT_EQ(simulated::StartedPrograms().size(), 1U);
    EXPECT_EQ(simulated::StartedPrograms()[0].commandLine, "notepad C:\\data\\Letter B.log");
}

TEST_F(Page, TheJobPageAndTheUpcomingAreaLeadToIt) {
    ScheduleJob("letter");
    EXPECT_EQ(schedulePage.Lista_Schedule, 1);
    EXPECT_EQ(schedulePage.Combo1, NoType);
    EXPECT_THAT(scheduleViewsStandIn.calls, ElementsAre("focus Combo1"));
    for (const char* time : {"18:00:00", "15:00:00"}) {
        Build(0);
        SetStartTime(time);
        SaveAs(std::string("at ") + time[1]);
    }
    ScheduleCommand6();
    EXPECT_EQ(List().listindex(), 1);
    EXPECT_EQ(schedulePage.schedule_save_as + " " + schedulePage.panels[0].start_time, "at 5 15:00:00");
    EXPECT_FALSE(schedulePage.old_schedule);
}

TEST_F(Page, SpeaksEveryLanguage) {
    for (const int language : AllLanguages) {
        SetLanguage(language);
        settings.Schedules.clear();
        Build(0);
        SaveScheduleChanges();
        EXPECT_THAT(FaultsOf(simulated::ShownBoxes().back().text), IsEmpty());
        SaveScheduleChanges();
        EXPECT_THAT(FaultsOf(simulated::ShownBoxes().back().text), IsEmpty());
        EXPECT_THAT(FaultsOf(Select(0).next_run), IsEmpty());
        ViewScheduleLog();
        EXPECT_THAT(FaultsOf(simulated::ShownBoxes().back().text), IsEmpty());
    }
}

}  // namespace
