// Who may use the main window, with the job runner, boxes and a main window whose one property is whether it is
// enabled.
#include "mainwindow/main_window_use.h"

#include "identity/window_identity.h"
#include "jobs/job_file.h"
#include "mainwindow/form_view.h"
#include "platform/boxes.h"
#include "replay/main_window_view.h"
#include "replay/run_job.h"
#include "settings/settings.h"
#include "support/job_builder.h"
#include "support/recorder.h"
#include "support/story.h"

namespace {

bool enabled = true;
const std::string JobPath = "C:\\jobs\\a.tsj";

// As the system does it: a box disables its owner, and enables it again if it was enabled before.
void WhileABoxIsOpen(const std::function<void()>& act) {
    const bool before = enabled;
    simulated::AnswerNextBox({.yes = true, .whileOpen = [act, before] {
                                  enabled = false;
                                  act();
                                  enabled = before || enabled;
                              }});
    EXPECT_TRUE(platform::AskYesNo("Really?", "Question")) << "the answer is not lost";
}

class MainWindowUseTest : public testing::Test {
protected:
    MainWindowUseTest() {
        simulated::PutFolder("C:\\jobs");
        settings.Display_Executing_Status = 1;
        HoldMainWindowDuringBoxes();
        Put(JobBuilder().Move(10, 10).Wait(500).Move(20, 20).Built());
    }

    static void Put(const Job& job) { WriteJob(JobPath, job); }
    static std::int32_t Run() { return RunJob(JobPath, 0, "", true); }
};

// A hotkey comes while a question is open.
TEST_F(MainWindowUseTest, ARunDoesNotEnableTheWindowBehindAQuestion) {
    const auto run = [] {
        EXPECT_EQ(Run(), 1);
        EXPECT_FALSE(enabled);
        EXPECT_FALSE(mainWindowUse.IsFree());
    };
    WhileABoxIsOpen(run);
    EXPECT_TRUE(enabled);
    EXPECT_TRUE(mainWindowUse.IsFree());
    WhileABoxIsOpen([&] { WhileABoxIsOpen(run); });
    EXPECT_TRUE(mainWindowUse.IsFree());

    settings.Display_Executing_Status = 0;
    Put(Job());
    WhileABoxIsOpen([] {
        EXPECT_LT(Run(), 1) << "which tells so in a box of its own";
        EXPECT_FALSE(enabled);
    });
    simulated::PutFile(JobPath, "damaged");
    WhileABoxIsOpen([] {
        EXPECT_THROW(Run(), RuntimeFailure);
        EXPECT_FALSE(enabled);
    });
    EXPECT_TRUE(enabled);
}

TEST_F(MainWindowUseTest, ABoxDuringARunDoesNotEnableItEither) {
    bool afterBox = true;
    simulated::After(100, [&] {
        WhileABoxIsOpen([] {});
        afterBox = enabled;
    });
    EXPECT_EQ(Run(), 1);
    EXPECT_FALSE(afterBox);
    EXPECT_TRUE(enabled);
}

// A run whose program is missing keeps the window for good; no box gives it back.
TEST_F(MainWindowUseTest, ARunThatIsNeverOverKeepsIt) {
    Job job = JobBuilder().Move(10, 10).Built();
    job.StartProgram = {"C:\\gone.exe", "", 1};
    Put(job);
    EXPECT_EQ(Run(), RunProgramMissing);
    WhileABoxIsOpen([] {});
    EXPECT_FALSE(mainWindowUse.IsFree());
    EXPECT_FALSE(enabled);
}

TEST_F(MainWindowUseTest, TheLastHolderGivesItBackWhateverTheOrder) {
    using enum MainWindowHolder;
    const std::vector<MainWindowHolder> orders[] = {{Run, Dialog, Dialog, Run},
                                                    {Run, Dialog, Run, Dialog},
                                                    {Dialog, Dialog, Dialog, Dialog},
                                                    {Dialog, Run, Run, Dialog}};
    for (const auto& order : orders) {
        mainWindowUse.Take(order[0]);
        mainWindowUse.Take(order[1]);
        mainWindowUse.GiveBack(order[2]);
        EXPECT_FALSE(enabled);
        mainWindowUse.GiveBack(order[3]);
        EXPECT_TRUE(enabled);
    }
    mainWindowUse.Take(Run);
    mainWindowUse.Take(Run);
    mainWindowUse.GiveBack(Run);
    EXPECT_TRUE(enabled) << "there is one run at most";
    WhileABoxIsOpen([] { mainWindowUse.Take(Dialog); });
    EXPECT_FALSE(enabled) << "a form that came up behind the box stays when that has gone";
    mainWindowUse.GiveBack(Dialog);
    EXPECT_TRUE(enabled);
}

TEST_F(MainWindowUseTest, ABoxOfAnotherFormTakesTheMainWindowToo) {
    ownWindows.main = 7;
    mainWindowUse.TakeForBox(8);
    EXPECT_FALSE(enabled);
    mainWindowUse.GiveBack(MainWindowHolder::Box);
    EXPECT_TRUE(enabled);
    mainWindowUse.TakeForBox(7);
    EXPECT_TRUE(enabled) << "the box does it, so that the foreground comes back here";
    EXPECT_FALSE(mainWindowUse.IsFree());
    mainWindowUse.GiveBack(MainWindowHolder::Box);
    enabled = false;
    EXPECT_FALSE(mainWindowUse.IsFree()) << "a form of the system's has it";
}

}  // namespace

namespace form_view {

void SetVisible(bool) {}
ANSWERS(bool, IsMinimised, false)
void BringToNormal() {}
ANSWERS(bool, IsEnabled, enabled)
KEEPS(Enable, bool, enabled)
void SetTrayOpenCaption(const std::string&) {}
void OpenTrayMenu() {}

}  // namespace form_view

namespace main_window_view {

ANSWERS(bool, IsVisible, true)
ANSWERS(bool, IsNormal, true)
void Minimise() {}
void Restore() {}
void Enable(bool enable) {
    enable ? mainWindowUse.GiveBack(MainWindowHolder::Run) : mainWindowUse.Take(MainWindowHolder::Run);
}
void EnableExitButton(bool) {}

}  // namespace main_window_view
