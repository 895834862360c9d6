#include "mainwindow/job_page.h"

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "library/job_library.h"
#include "platform/text.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/job_page_view_stand_in.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

constexpr int DownKey = 40;

// Jobs a, b and c in the list, b selected.
class JobPageRules : public testing::Test {
protected:
    JobPageRules() {
        folders.DataFolder = "C:\\jobs";
        folders.DesktopFolder = "C:\\desktop";
        simulated::PutFolder(folders.DataFolder);
        simulated::PutFolder(folders.DesktopFolder);
        LoadJobPage();
        for (const char* name : {"a", "b", "c"}) PutJob(name, {});
        Select("b");
    }

    static std::string PathOf(const std::string& name) { return "C:\\jobs\\" + name + ".tsj"; }

    static void PutJob(const std::string& name, const JobOptions& options) {
        Job job;
        job.Description = "Description of " + name;
        job.SpeedPercent = options.SpeedPercent;
        job.SkipMouseMoves = options.SkipMouseMoves;
        job.RepeatCount = options.RepeatCount;
        job.SafetyLevel = options.SafetyLevel;
        job.SimilarWindowNames = options.SimilarWindowNames;
        WriteJob(PathOf(name), job);
        job_library::ShowSavedJob(PathOf(name));
    }

    static void Select(const std::string& name) { job_library::SelectJob(PathOf(name)); }
    static int Selected() { return jobLibrary.lista_jobs.listindex(); }

    static void Click(int row, ListButton button = ListButton::Left) {
        const platform::Rect rect = jobLibrary.lista_jobs.RowRect(row);
        const platform::Point point{rect.left + 5, rect.top + 5};
        jobLibrary.lista_jobs.PressMouse(button, point);
        jobLibrary.lista_jobs.ReleaseMouse(button, point);
    }

    // The file's own word on what was saved.
    static JobHeaderCheck Saved(const std::string& name) { return CheckJobHeader(PathOf(name)); }

    static void ChooseTakenHotkey() {
        settings.Hotkeys = {{HotkeyControl, 'A', PathOf("a")}};
        jobPage.hotkey = {.assign_hotkey = true, .hot_ctrl = true, .hot_slovo = 0};
        NoteHotkeyChange();
    }
};

TEST_F(JobPageRules, TellTheSpeedInWords) {
    const std::tuple<std::int32_t, std::string, std::string> cases[] = {
        {33, "33", "3.03 times slower than original"},   {50, "50", "2 times slower than original"},
        {32, "32", "3.12 times slower than original"},  // halves to the even neighbour
        {1, "1", "100 times slower than original"},      {100, "100", "Normal speed"},
        {101, "101", "1.01 times faster than original"}, {150, "150", "1.5 times faster than original"},
        {1000, "1000", "10 times faster than original"}, {1001, "max", "Maximum speed"}};
    for (const auto& [speed, text, tip] : cases) {
        SetSpeed(speed);
        EXPECT_EQ(jobPage.Options_speed, text);
        EXPECT_EQ(jobPage.sliderTip, tip);
        EXPECT_EQ(jobPage.Check6, speed == 1001);
    }
}

TEST_F(JobPageRules, OfferToSaveWhateverControlWasTouched) {
    const std::function<void()> touches[] = {
        [] { SetSpeed(42); },      [] { ClickSkipMoves(true); },    [] { ClickRepeat(false); }, [] { EditRepeat("3"); },
        [] { SetSafetyLevel(1); }, [] { ClickSimilarNames(true); }, [] { NoteHotkeyChange(); },
    };
    for (const auto& touch : touches) {
        Select("a");
        Select("b");
        EXPECT_FALSE(jobPage.button_save_changes);
        touch();
        EXPECT_TRUE(jobPage.button_save_changes) << &touch - touches;
        jobPage.button_save_changes = false;
    }
}

TEST_F(JobPageRules, TakeASpeedThatIsTyped) {
    const std::pair<const char*, std::int32_t> cases[] = {{"1", 1},      {" 250 ", 250}, {"1001", 1001},
                                                          {"1002", 100}, {"0", 100},     {"-5", 100},
                                                          {"max", 100},  {"", 100},      {"1.5", 100}};
    for (const auto& [typed, speed] : cases) {
        LeaveOptionsSpeed(typed);
        EXPECT_EQ(jobPage.Slider1, speed) << typed;
        EXPECT_EQ(jobPage.Options_speed, speed == 1001 ? "max" : std::to_string(speed)) << typed;
        EXPECT_EQ(jobPage.Check6, speed == 1001) << typed;
    }
}

TEST_F(JobPageRules, BringTheOldSpeedBackBehindTheMaximum) {
    SetSpeed(70);
    ClickMaximumSpeed(true);
    EXPECT_EQ(jobPage.Slider1, 1001);
    ClickMaximumSpeed(false);
    EXPECT_EQ(jobPage.Slider1, 70);
    SetSpeed(1001);
    StepSpeed(1);
    EXPECT_EQ(jobPage.Slider1, 1001);
    StepSpeed(-1);
    EXPECT_EQ(jobPage.Slider1, 1000);
    EXPECT_FALSE(jobPage.Check6);
    ClickMaximumSpeed(true);
    EXPECT_TRUE(SaveChanges());
    ClickMaximumSpeed(false);  // the file knows no other speed
    EXPECT_EQ(jobPage.Slider1, 100);
    ClickMaximumSpeed(true);
    RestoreOriginalSpeed();
    EXPECT_EQ(jobPage.Options_speed, "100");
}

TEST_F(JobPageRules, AllowRepeatsWithinTheirRange) {
    const std::pair<const char*, const char*> cases[] = {{"100000", "100000"}, {"100001", "1"}, {"0", "1"}, {"", "1"},
                                                         {"x", "1"},           {"12", "12"}};
    for (const auto& [typed, becomes] : cases) {
        EditRepeat(typed);
        EXPECT_EQ(jobPage.options_repeat, becomes) << typed;
    }
    ClickRepeat(false);
    EXPECT_EQ(jobPage.options_repeat, "");
    EXPECT_FALSE(EnabledOnJobPage().options_repeat);
    EXPECT_TRUE(SaveChanges());
    EXPECT_EQ(Saved("b").repeat, 0);
    EXPECT_FALSE(jobPage.Option1);
    ClickRepeat(true);
    EXPECT_EQ(jobPage.options_repeat, "1");
}

TEST_F(JobPageRules, KeepTheTickOfSimilarNamesAtTheLowLevel) {
    ClickSimilarNames(true);
    SetSafetyLevel(2);
    EXPECT_FALSE(EnabledOnJobPage().similiar_window_names);
    EXPECT_TRUE(SaveChanges());
    EXPECT_EQ(Saved("b").similarNames, 1);
    EXPECT_EQ(Saved("b").safety, 2);
    const std::pair<const char*, std::size_t> panels[] = {{"High", 2}, {"Medium", 1}, {"Low", 2}};
    for (int level = 0; level <= 2; ++level) {
        EXPECT_EQ(SafetyCaption(level), panels[level].first);
        EXPECT_EQ(SafetyPanel(level).size(), panels[level].second);
    }
}

TEST_F(JobPageRules, ShowTheSelectedJob) {
    PutJob("d",
           {.SpeedPercent = 1001, .SkipMouseMoves = 1, .RepeatCount = 7, .SafetyLevel = 1, .SimilarWindowNames = 1});
    settings.Hotkeys = {{HotkeyShift, 'D', PathOf("d")}};
    Select("d");
    EXPECT_EQ(jobPage.frameCaption, "Edit properties for job 'd'");
    EXPECT_EQ(jobPage.run_job_tip, "Click  to start executing job 'd'");
    EXPECT_EQ(jobPage.make_exe_tip, "Compile job into standalone .exe file");
    EXPECT_EQ(jobPage.Options_speed, "max");
    EXPECT_TRUE(jobPage.Check6 && jobPage.Check7 && jobPage.Option1 && jobPage.similiar_window_names);
    EXPECT_EQ(jobPage.options_repeat, "7");
    EXPECT_EQ(jobPage.slider_safety_level, 1);
    EXPECT_TRUE(jobPage.hotkey.hot_shift);
    EXPECT_EQ(jobPage.hotkey.hot_slovo, 3);
    EXPECT_FALSE(EnabledOnJobPage().button_save_changes);
    EXPECT_TRUE(EnabledOnJobPage().page);
    SetLanguage(LanguageSpanish);
    Select("a");
    EXPECT_EQ(jobPage.frameCaption, "Propiedades de la tarea 'a'");
    EXPECT_EQ(platform::ToUtf8(SpeedTip(33)), "3,03 veces más lento que el original");
}

TEST_F(JobPageRules, DropARowWhoseFileWasDamaged) {
    simulated::PutFile(PathOf("c"), "short");
    Click(2);
    EXPECT_EQ(jobLibrary.lista_jobs.ListCount(), 2);
    EXPECT_EQ(Selected(), -1);
    EXPECT_FALSE(EnabledOnJobPage().page);
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
}

TEST_F(JobPageRules, WriteNothingButTheOptions) {
    SetSpeed(250);
    ClickSkipMoves(true);
    jobLibrary.lista_jobs.Measure({.ItemHeight = 50, .visible = {300, 60}});
    jobLibrary.lista_jobs.ScrollTo(2);
    EXPECT_TRUE(SaveChanges());
    EXPECT_EQ(Saved("b").speed, 250);
    EXPECT_EQ(Saved("b").skipMoves, 1);
    EXPECT_EQ(Saved("b").description, "Description of b");
    EXPECT_EQ(Saved("a").speed, 100);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(jobLibrary.lista_jobs.ScrollValue(), 2);
    EXPECT_FALSE(jobPage.button_save_changes);
    EXPECT_TRUE(simulated::FileBytes("C:\\jobs\\settings.binary"));
}

TEST_F(JobPageRules, WriteNothingAtAllWhenTheHotkeyIsRefused) {
    SetSpeed(250);
    ChooseTakenHotkey();
    EXPECT_FALSE(SaveChanges());
    EXPECT_EQ(Saved("b").speed, 100);
    EXPECT_EQ(jobPage.Slider1, 250);
    EXPECT_EQ(jobPage.other_option, HotkeyTab);
    EXPECT_TRUE(jobPage.button_save_changes);
    EXPECT_THAT(jobPageViewStandIn.calls, ElementsAre("focus lista_jobs"));
    EXPECT_EQ(simulated::ShownBoxes().size(), 1U);
    EXPECT_FALSE(simulated::FileBytes("C:\\jobs\\settings.binary"));
}

TEST_F(JobPageRules, KeepTheChangesWhenTheJobCannotBeWritten) {
    SetSpeed(250);
    simulated::LosePath(PathOf("b"));
    EXPECT_THROW(SaveChanges(), RuntimeFailure);
    EXPECT_TRUE(jobPage.button_save_changes);
    EXPECT_EQ(jobPage.Slider1, 250);
}

TEST_F(JobPageRules, AskForAJobFirst) {
    jobLibrary.lista_jobs.setlistindex(-1);
    EXPECT_FALSE(SaveChanges());
    EXPECT_EQ(simulated::ShownBoxes()[0].text, "Select job on the list of jobs first.");
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Information);
    run_job();
    edit_job();
    create_exe();
    EXPECT_THAT(shellStandIn.calls, IsEmpty());
}

TEST_F(JobPageRules, AskAboutChangesBeforeAnotherRowIsShown) {
    for (const bool save : {true, false}) {
        Select("b");
        SetSpeed(save ? 42 : 43);
        Click(1);  // the same row
        EXPECT_TRUE(jobPage.button_save_changes);
        simulated::AnswerNextBox({.yes = save});
        Click(2);
        EXPECT_EQ(simulated::ShownBoxes().back().text, "Do you want to save changes you made to job 'b'?");
        EXPECT_EQ(simulated::ShownBoxes().back().title, "Save Changes");
        EXPECT_EQ(Selected(), 2);
        EXPECT_EQ(jobPage.Slider1, 100);
        EXPECT_EQ(Saved("b").speed, 42);
    }
    EXPECT_EQ(simulated::ShownBoxes().size(), 2U);
    Select("b");
    SetSpeed(44);
    simulated::AnswerNextBox({.yes = true});
    jobLibrary.lista_jobs.KeyDown(DownKey, 0);
    EXPECT_EQ(Saved("b").speed, 44);
    EXPECT_EQ(Selected(), 2);
}

TEST_F(JobPageRules, StayWithAJobWhoseChangesAreRefused) {
    ChooseTakenHotkey();
    for (const ListButton button : {ListButton::Left, ListButton::Right}) {
        simulated::AnswerNextBox({.yes = true});
        Click(2, button);
        EXPECT_EQ(Selected(), 1);
    }
    simulated::AnswerNextBox({.yes = true});
    run_job();
    EXPECT_THAT(jobPageViewStandIn.calls, Not(Contains("OpenMenuJobs")));
    EXPECT_THAT(shellStandIn.calls, IsEmpty());
    EXPECT_TRUE(jobPage.hotkey.assign_hotkey);
}

// Another job's properties must not be saved into one that could not be read.
TEST_F(JobPageRules, ShowNothingOfAJobThatIsHeldUntilItIsFree) {
    SetSpeed(42);
    SaveChanges();
    simulated::LockFileAgainstReaders(PathOf("a"));
    Select("a");
    job_library::FillJobList();  // which selects it again
    EXPECT_EQ(Selected(), 0);
    EXPECT_FALSE(EnabledOnJobPage().page);
    simulated::LockFile(PathOf("a"), 0);
    Click(0);
    EXPECT_TRUE(EnabledOnJobPage().page);
    EXPECT_EQ(jobPage.Slider1, 100);
    EXPECT_EQ(jobLibrary.lista_jobs.Row(0).Text2, "Description of a");
}

// The list is filled anew after a recording, and what is not saved would go with it.
TEST_F(JobPageRules, AskAboutChangesBeforeARecording) {
    settings.Display_Recording_Window = 1;
    ChooseTakenHotkey();
    simulated::AnswerNextBox({.yes = true});
    record_new();
    EXPECT_FALSE(RecordingActive()) << "the changes were to be saved, and were refused";
    SetSpeed(42);
    simulated::AnswerNextBox({.yes = false});
    record_new();
    EXPECT_TRUE(RecordingActive());
    EXPECT_EQ(Saved("b").speed, 100);
    const std::size_t boxes = simulated::ShownBoxes().size();
    SetSpeed(43);
    record_new();
    EXPECT_EQ(simulated::ShownBoxes().size(), boxes) << "nothing is asked in the middle of a recording";
}

TEST_F(JobPageRules, OpenTheMenuOnTheRowUnderTheRightButton) {
    Click(2, ListButton::Right);
    EXPECT_EQ(Selected(), 2);
    EXPECT_THAT(jobPageViewStandIn.calls, ElementsAre("OpenMenuJobs"));
}

TEST_F(JobPageRules, StartTheCommandsOnTheSelectedJob) {
    shellStandIn.duringRun = [] { EXPECT_THAT(jobPageViewStandIn.calls, ElementsAre("grey")); };
    run_job();
    EXPECT_THAT(shellStandIn.calls, ElementsAre("RunJob " + PathOf("b")));
    SetSpeed(42);
    create_exe();  // saves without a question
    EXPECT_EQ(Saved("b").speed, 42);
    schedule_job();
    EXPECT_THAT(jobPageViewStandIn.calls, ElementsAre("grey", "free", "exe " + PathOf("b"), "schedule b"));
    create_desktop_shortcut();
    EXPECT_TRUE(simulated::FileBytes("C:\\desktop\\b.lnk"));
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
    simulated::LosePath(PathOf("b"));
    edit_job();
    EXPECT_EQ(simulated::ShownBoxes().back().title, "File access error");
}

TEST_F(JobPageRules, FreeThePageWhenARunFails) {
    shellStandIn.duringRun = [] { throw RuntimeFailure(FailureKind::File, "damaged"); };
    EXPECT_THROW(run_job(), RuntimeFailure);
    EXPECT_THAT(jobPageViewStandIn.calls, ElementsAre("grey", "free"));
}

// The check of the jobs in the list: of all of them, in idle moments, and again where a file has become another.
TEST_F(JobPageRules, MarkTheJobsThatWillFailAndTellWhy) {
    const auto marks = [] {
        std::vector<std::string> found;
        for (int row = 0; row < jobLibrary.lista_jobs.ListCount(); ++row) {
            found.push_back(jobLibrary.lista_jobs.Row(row).mark);
        }
        return found;
    };
    const auto putGoodJob = [](const std::string& name) {
        WriteJob(PathOf(name), JobBuilder().InWindow({"Notepad", "Untitled"}).Type("a").Built());
        job_library::ShowSavedJob(PathOf(name));
    };
    putGoodJob("b");
    EXPECT_THAT(marks(), ElementsAre("", "", "")) << "nothing is checked while the list is filled";
    simulated::RunFor(2000);
    const std::string one = "Findings of the check: 1";
    EXPECT_THAT(marks(), ElementsAre(one, "", one));

    putGoodJob("a");
    EXPECT_THAT(marks(), ElementsAre(one, "", one)) << "what is known stays until it is looked at again";
    runState.ReplayRunning = true;
    simulated::RunFor(2000);
    EXPECT_THAT(marks(), ElementsAre(one, "", one)) << "never during a run";
    runState.ReplayRunning = false;
    simulated::RunFor(2000);
    EXPECT_THAT(marks(), ElementsAre("", "", one));

    const platform::Rect mark = jobLibrary.lista_jobs.MarkRect(2);
    const platform::Point point{mark.left + 1, mark.top + 1};
    jobLibrary.lista_jobs.PressMouse(ListButton::Left, point);
    jobLibrary.lista_jobs.ReleaseMouse(ListButton::Left, point);
    EXPECT_EQ(Selected(), 2);
    ASSERT_THAT(simulated::ShownBoxes(), SizeIs(1));
    EXPECT_EQ(simulated::ShownBoxes()[0].text,
              "What may go wrong with the job 'c':\r\n\r\n"
              "The job is empty. Record something into it in the job editor, or delete it.");

    show_findings();
    EXPECT_THAT(simulated::ShownBoxes(), SizeIs(2)) << "the menu tells the same";
    Select("a");
    EXPECT_FALSE(SelectedJobHasFindings());
    show_findings();
    EXPECT_THAT(simulated::ShownBoxes(), SizeIs(2));
}

}  // namespace
