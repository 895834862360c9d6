#include "replay/run_job.h"

#include <new>

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "platform/hooks.h"
#include "platform/text.h"
#include "platform/tray.h"
#include "replay/replay_log.h"
#include "replay/timing.h"
#include "replay_stage.h"
#include "support/main_window_view_stand_in.h"

using simulated::TextOf;

namespace {

const std::string JobPath = "C:\\Data\\morning.tsj";
const std::string LogPath = "C:\\Data\\morning.log";
const std::string Failed = "Tessarine|Execution of job 'morning' failed. Reason:\r\n";
constexpr int LeftShift = 160;

class RunJobTest : public ReplayStage {
protected:
    RunJobTest() { simulated::PutFolder("C:\\Data"); }

    std::int32_t Run(const std::string& logPath = "", bool noInputBlock = true) {
        Job built = job.Built();
        built.StartProgram = program;
        WriteJob(JobPath, built);
        return RunJob(JobPath, 0, logPath, noInputBlock);
    }

    static std::string Log() { return simulated::FileBytes(LogPath).value_or(""); }

    static void ExpectAllPutRight() {
        EXPECT_FALSE(runState.ReplayRunning);
        EXPECT_TRUE(mainWindowViewStandIn.enabled);
        EXPECT_TRUE(mainWindowViewStandIn.exitButtonEnabled);
        EXPECT_FALSE(mainWindowViewStandIn.minimised);
        EXPECT_FALSE(statusViewStandIn.executing2.visible);
        EXPECT_GE(platform::AsyncKeyState(LeftShift), 0) << "Shift is up";
        for (const bool down : heldInput.KeysDown) EXPECT_FALSE(down);
        for (const int button : {1, 2, 4, 5, 6}) EXPECT_GE(platform::AsyncKeyState(button), 0) << "button " << button;
    }

    StartProgramRecord program;
};

void IgnoreKeys(const platform::KeyboardHookRecord&) {}

TEST_F(RunJobTest, ARunGoesFromTheFileToTheWindow) {
    settings.Display_Executing_Status = 1;
    InEdit().Click(Left, 300, 300).Type("hello");
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(TextOf(edit), "hello");
    EXPECT_EQ(statusViewStandIn.jobName, "morning");
    EXPECT_EQ(statusViewStandIn.statusLabel, "Finished");
    EXPECT_TRUE(statusViewStandIn.closeButtonVisible);
    EXPECT_FALSE(statusViewStandIn.barVisible);
    EXPECT_FALSE(statusViewStandIn.dodging);
    EXPECT_EQ(settings.RecentJobs[0], JobPath);
    ExpectAllPutRight();
}

// Beside the run and not in front of it, but before anything is pressed.
TEST_F(RunJobTest, ARunHasAGuardBeforeItSendsAnything) {
    EXPECT_EQ(RunJob("C:\\Data\\gone.tsj", 0, "", true), -10);
    EXPECT_EQ(simulated::GuardStarts(), 0) << "not for a run that is refused";
    int startsAtFirstKey = 0;
    simulated::OnKey(edit, 'A', [&] { startsAtFirstKey = simulated::GuardStarts(); });
    InEdit().Type("a");
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(startsAtFirstKey, 1);
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(simulated::GuardStarts(), 2) << "the one before may have died";
}

TEST_F(RunJobTest, ARunIsRefusedDuringAnotherAndDuringARecording) {
    std::int32_t second = 0;
    InEdit().KeyDown(LeftShift).Wait(2000).KeyUp(LeftShift);
    simulated::After(1000, [&] { second = RunJob(JobPath, 0, "", true); });
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(second, -10);
    ASSERT_TRUE(platform::InstallKeyboardHook(IgnoreKeys));
    EXPECT_EQ(RunJob(JobPath, 0, "", true), -11);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(RunJobTest, ARunIsRefusedWhileAnotherProgramPlays) {
    InEdit().Type("a");
    platform::AddTrayIcon(notepad, "");
    simulated::LetAnotherProgramPlay();
    EXPECT_EQ(Run(LogPath), -10);
    EXPECT_THAT(simulated::Tray().balloons, ElementsAre(HasSubstr("Another program is playing a job")));
    EXPECT_THAT(Log(), HasSubstr("Another program is playing a job"));
    EXPECT_THAT(Boxes(), IsEmpty()) << "it would take the keys of the other run";
    EXPECT_TRUE(mainWindowViewStandIn.calls.empty());
    simulated::LetAnotherProgramPlay(false);
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(TextOf(edit), "a");
}

TEST_F(RunJobTest, AJobThatCannotBeReadIsToldAndAHeldOneIsWaitedForBefore) {
    EXPECT_EQ(RunJob("C:\\Data\\gone.tsj", 0, "", true), -10);
    EXPECT_EQ(LastBox(), "File access error|File does not exist:\r\nC:\\Data\\gone.tsj");
    EXPECT_TRUE(mainWindowViewStandIn.calls.empty());
    InEdit().Type("a");
    simulated::LockFileAgainstReaders(JobPath, platform::TickCount() + 1000);
    EXPECT_EQ(Run(), 1);
    simulated::LockFileAgainstReaders(JobPath);
    EXPECT_EQ(RunJob(JobPath, 0, "", true), -10);
    EXPECT_EQ(LastBox(), "File access error|The file '" + JobPath +
                             "' is in use by another program. Please try again in a moment.");
    simulated::PutFile("C:\\Data\\damaged.tsj", "short");
    EXPECT_THROW(RunJob("C:\\Data\\damaged.tsj", 0, "", true), RuntimeFailure);
    ExpectAllPutRight();
}

TEST_F(RunJobTest, TheMainWindowStepsAsideAndComesBackOnlyIfItDid) {
    InEdit().Type("a");
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(mainWindowViewStandIn.calls.front(), "Minimise");
    mainWindowViewStandIn.minimised = true;
    mainWindowViewStandIn.calls.clear();
    EXPECT_EQ(Run(), 1);
    EXPECT_TRUE(mainWindowViewStandIn.minimised) << "it was minimised before, and stays so";
}

TEST_F(RunJobTest, ItComesBackWhenTheLastKeysHaveArrived) {
    InEdit().Type("ab");
    simulated::OnKey(edit, 'A', [this] {
        simulated::SetHung(edit);
        simulated::MeanwhileAfter(300, [this] { simulated::SetHung(edit, false); });
    });
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(TextOf(edit), "ab");
}

TEST_F(RunJobTest, InputIsBlockedForTheFirstSecond) {
    InEdit().KeyDown('A').Wait(3000).KeyUp('A');
    bool early = false;
    bool late = true;
    simulated::MeanwhileAt(900, [&] { early = simulated::InputBlocked(); });
    simulated::MeanwhileAt(1100, [&] { late = simulated::InputBlocked(); });
    std::string hint;
    simulated::MeanwhileAt(1100, [&] { hint = statusViewStandIn.secondLabel; });
    EXPECT_EQ(Run("", false), 1);
    EXPECT_TRUE(early);
    EXPECT_FALSE(late);
    EXPECT_EQ(hint, "Press ESC to stop...");
}

TEST_F(RunJobTest, AShortRunLeavesTheBlockToTheTimer) {
    InEdit().Type("a");
    EXPECT_EQ(Run("", false), 1);
    EXPECT_TRUE(simulated::InputBlocked());
    simulated::RunFor(1100);
    EXPECT_FALSE(simulated::InputBlocked());
    EXPECT_EQ(Run("", true), 1);
    EXPECT_FALSE(simulated::InputBlocked()) << "a hotkey's run does not block";
}

TEST_F(RunJobTest, WithoutATimerThereIsNoBlock) {
    simulated::RefuseTimers();
    InEdit().Type("a");
    EXPECT_EQ(Run("", false), 1);
    EXPECT_FALSE(simulated::InputBlocked());
    EXPECT_EQ(statusViewStandIn.secondLabel, "Press ESC to stop...");
}

TEST_F(RunJobTest, AHotkeysRunBeginsWhenItsKeysAreUpOrAfterTwoSeconds) {
    const int control = 162;
    InEdit().Type("a");
    simulated::UserHolds(control, 0, 700);
    simulated::UserHolds('J', 0, 900);
    simulated::RunFor(1);
    simulated::SetText(edit, "");
    EXPECT_EQ(Run(), 1);
    EXPECT_GE(platform::TickCount(), 900);
    EXPECT_LT(platform::TickCount(), 1800);
    EXPECT_EQ(TextOf(edit), "a");

    const std::int64_t began = platform::TickCount();
    simulated::UserHolds(control, began, began + 9000);
    simulated::RunFor(1);
    EXPECT_EQ(Run(), 1);
    EXPECT_GE(platform::TickCount() - began, 2000);
    EXPECT_LT(platform::TickCount() - began, 4000) << "who holds on for long means it";
    simulated::UserTaps(27);
    EXPECT_EQ(Run(), 1) << "a tap from before the run";
    simulated::UserHoldsEscapeFrom(platform::TickCount() + 300, platform::TickCount() + 400);
    EXPECT_EQ(Run(), -2);
    simulated::RunFor(10'000);
    const std::int64_t noHotkey = platform::TickCount();
    simulated::UserHolds(control, noHotkey, noHotkey + 9000);
    simulated::RunFor(1);
    EXPECT_EQ(Run("", false), 1);
    EXPECT_LT(platform::TickCount() - noHotkey, 2000) << "only a hotkey's run waits";
}

// The steps before the first input pump, and every one of them can bring another start.
TEST_F(RunJobTest, OneStartIsOneRunFromItsFirstStepOn) {
    std::vector<std::int32_t> results;
    simulated::At(0, [&] { results.push_back(RunJob(JobPath, 0, "", true)); });
    simulated::AnswerNextBox({.afterMs = 50, .whileOpen = [&] { results.push_back(RunJob(JobPath, 0, "", true)); }});
    InEdit().Type("a");
    EXPECT_EQ(RunJob("C:\\Data\\gone.tsj", 0, "", true), -10);
    EXPECT_THAT(results, testing::Each(-10));
    EXPECT_THAT(Boxes(), SizeIs(1));
    EXPECT_FALSE(runState.ReplayRunning);
    simulated::At(platform::TickCount(), [&] { results.push_back(RunJob(JobPath, 0, "", true)); });
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(results, ElementsAre(-10, -10, -10));
    EXPECT_EQ(TextOf(edit), "a");
}

TEST_F(RunJobTest, TheProgramOfTheJobIsStarted) {
    program = {"C:\\Windows\\notepad.exe", " C:\\a.txt ", 3};
    simulated::PutFile(program.ProgramPath, "");
    simulated::Destroy(notepad);
    simulated::ProgramShows("notepad.exe", 500, NotepadSpec());
    job.Header().SafetyLevel = SafetyMedium;
    job.InWindow({"Notepad", "Untitled - Notepad", 0, {0, 0, 1, {-1, -1}, {-1, -1}, {100, 100, 700, 500}}});
    job.Click(Left, 300, 300);
    EXPECT_EQ(Run(), 1);
    ASSERT_EQ(simulated::StartedPrograms().size(), 1U);
    EXPECT_EQ(simulated::StartedPrograms()[0].commandLine, "C:\\Windows\\notepad.exe C:\\a.txt");
    EXPECT_EQ(simulated::StartedPrograms()[0].windowStyle, 3);
}

TEST_F(RunJobTest, AMissingProgramEndsTheRunAndAllRunsAfterIt) {
    program = {"C:\\gone.exe", "", 1};
    InEdit().Type("a");
    EXPECT_EQ(Run(), 0);
    EXPECT_THAT(Boxes(), ElementsAre("File not found|Cannot start program:\r\nC:\\gone.exe\r\nFile not found"));
    EXPECT_EQ(TextOf(edit), "");
    EXPECT_TRUE(runState.programWasMissing) << "and nothing is under way";
    program = {};
    EXPECT_EQ(Run(), -10);
}

// --- held keys ---

TEST_F(RunJobTest, HeldKeysAreReleasedAfterEveryKindOfEnding) {
    const auto endsWith = [this](std::int32_t result) {
        EXPECT_EQ(Run(), result);
        ExpectAllPutRight();
        NewJob();
    };
    InEdit().KeyDown(LeftShift).Wait(100).Type("a");
    endsWith(1);
    InEdit().KeyDown(LeftShift).Wait(5000).Type("a");
    simulated::MeanwhileAt(platform::TickCount() + 2000, [] { simulated::UserTaps(27); });
    endsWith(-2);
    InEdit().KeyDown(LeftShift);
    InLostWindow().IfNoWindow(StopExecuting, 0).Press(Left, 1, 1);
    endsWith(-4);
    InEdit().Press(Left, 300, 300).Press(Right, 300, 300).Press(XButton2, 300, 300);
    endsWith(1);
    InEdit().TextRow("{L_SHIFT DOWN}a").Wait(100).Move(1, 1);
    endsWith(1);

    InEdit().KeyDown(LeftShift).Wait(100).UseChain(99).Press(Left, 1, 1);
    EXPECT_THROW(Run(), RuntimeFailure);
    ExpectAllPutRight();
    NewJob();
    InEdit().KeyDown(LeftShift).Wait(5000).Type("a");
    settings.Display_Executing_Status = 1;
    statusViewStandIn.noMemoryForBar = true;
    EXPECT_THROW(Run(), std::bad_alloc);
    ExpectAllPutRight();
}

// --- how it went ---

// The menu of the recent jobs passes an entry of the very list that the run brings up to date.
TEST_F(RunJobTest, TheCallersPathsMayChangeDuringTheRun) {
    InLostWindow().IfNoWindow(StopExecuting, 0).Press(Left, 1, 1);
    WriteJob(JobPath, job.Built());
    settings.RecentJobs[0] = "C:\\Data\\other.tsj";
    settings.RecentJobs[1] = JobPath;
    EXPECT_EQ(RunJob(settings.RecentJobs[1], 0, "", true), -4);
    EXPECT_EQ(LastBox(), Failed + "Cannot find window: 'Nowhere'");

    std::string logPath = LogPath;
    simulated::After(100, [&] { logPath = "C:\\Data\\other.log"; });
    EXPECT_EQ(RunJob(JobPath, 0, logPath, true), -4);
    EXPECT_TRUE(simulated::FileBytes(LogPath));
    EXPECT_FALSE(simulated::FileBytes(logPath));
}

TEST_F(RunJobTest, ACancelIsToldInTheListAndInTheLog) {
    settings.Display_Executing_Status = 1;
    InEdit().Click(Left, 300, 300).Wait(5000).Type("a");
    simulated::MeanwhileAt(2000, [] { simulated::UserTaps(27); });
    EXPECT_EQ(Run(LogPath), -2);
    EXPECT_THAT(Log(), HasSubstr("  Execution of job was canceled by user.\r\n"));
    EXPECT_EQ(statusViewStandIn.list.at(0), "OK   1. MOUSE: Left click at: Untitled - Notepad");
    EXPECT_EQ(statusViewStandIn.list.at(1), "Execution of job was canceled by user");
    EXPECT_EQ(statusViewStandIn.selectedLine, 1);
    EXPECT_EQ(statusViewStandIn.statusLabel, "Canceled");
}

TEST_F(RunJobTest, AFailureIsToldInTheListOrInABox) {
    InLostWindow().IfNoWindow(StopExecuting, 0).Press(Left, 1, 1);
    EXPECT_EQ(Run(), -4);
    EXPECT_THAT(Boxes(), ElementsAre(Failed + "Cannot find window: 'Nowhere'"));

    settings.Display_Executing_Status = 1;
    EXPECT_EQ(Run(), -4);
    EXPECT_THAT(Boxes(), SizeIs(1)) << "no second box";
    EXPECT_EQ(statusViewStandIn.list.at(0), "Execution of job failed. Reason: ");
    EXPECT_EQ(statusViewStandIn.list.at(1), "Cannot find window: 'Nowhere'");

    settings.Display_Executing_Status = 0;
    SetLanguage(LanguageFrench);
    EXPECT_EQ(Run(), -4);
    EXPECT_EQ(platform::ToUtf8(simulated::ShownBoxes().back().text),
              "L'exécution de la tâche 'morning' a échoué. Motif\u00A0:\r\nImpossible de trouver la fenêtre\u00A0: "
              "'Nowhere'");
}

TEST_F(RunJobTest, AnEmptyJobFails) {
    EXPECT_EQ(Run(), -200);
    EXPECT_THAT(Boxes(), ElementsAre(Failed + "There is no commands to execute!"));
    EXPECT_THAT(simulated::Journal(), IsEmpty());
}

TEST_F(RunJobTest, ARunWithALogWritesExactlyThis) {
    simulated::SetLocalTime({2026, 11, 15, 5, 12, 44});
    InEdit().At(2000).Click(Left, 300, 300);
    InLostWindow().IfNoWindow(StopExecuting, 0).At(5000).Click(Right, 300, 300);
    EXPECT_EQ(Run(LogPath), -4);
    EXPECT_EQ(Log(),
              "Date: 11/15/2026\r\n"
              "\r\n"
              "05:12:44  Job speed: 100 (normal speed)\r\n"
              "05:12:44  Job will repeat: 1 time(s)\r\n"
              "\r\n"
              "05:12:46  OK <-  1. MOUSE: Left click at: Untitled - Notepad\r\n"
              "05:12:49  Cannot execute command:\r\n"
              "05:12:49     2. MOUSE: Right click at: Nowhere\r\n"
              "05:12:49  Execution of job failed. Reason: \r\n"
              "05:12:49  Cannot find window: 'Nowhere'\r\n"
              "\r\n\r\n\r\n\r\n");
    EXPECT_THAT(Boxes(), IsEmpty()) << "nobody is there to see one";
    EXPECT_EQ(settings.RecentJobs[0], "") << "an unattended run leaves the recent jobs alone";

    const std::string before = Log();
    NewJob(SafetyHigh, MaximumSpeed);
    job.Header().RepeatCount = 2;
    InEdit().Click(Left, 300, 300);
    EXPECT_EQ(Run(LogPath), 2);
    for (const char* part : {"Job speed: MAXIMUM\r\n", "repeat: 2 time(s)\r\n\r\n", "Repeating job no: 2/2\r\n",
                             "completed successfully.\r\n"}) {
        EXPECT_THAT(Log(), HasSubstr(part));
    }
    EXPECT_THAT(Log(), EndsWith(before + "\r\n")) << "the newest run stands on top";
}

TEST_F(RunJobTest, TheResultOfARunStaysWhenItsLogCannotBeWritten) {
    settings.Display_Executing_Status = 1;
    InEdit().Type("a");
    const std::string nowhere = "C:\\Gone\\morning.log";
    EXPECT_EQ(Run(nowhere), 1);
    ExpectAllPutRight();
    EXPECT_THAT(statusViewStandIn.list.back(), HasSubstr("morning.log"));
    EXPECT_EQ(statusViewStandIn.statusLabel, "Finished");
    settings.Display_Executing_Status = 0;
    platform::AddTrayIcon(1, "tip");
    EXPECT_EQ(Run(nowhere), 1);
    EXPECT_THAT(simulated::Tray().balloons, ElementsAre(HasSubstr("morning.log")));
    EXPECT_THAT(Boxes(), IsEmpty()) << "nobody may be there to answer";
    settings.Display_Executing_Status = 1;
    EXPECT_EQ(Run(LogPath), 1);
    const std::string log = Log();
    EXPECT_EQ(std::count(log.begin(), log.end(), '<'), 3) << "the lines of all runs, in the next log that works";
}

TEST_F(RunJobTest, AnEndlessRunWithoutALogKeepsItsMemory) {
    job.Header().RepeatCount = 0;
    job.Header().SafetyLevel = SafetyLow;
    InEdit().At(0).Key('A').At(10).Move(1, 1);
    LogLine("from before");
    simulated::UserHoldsEscapeFrom(5000, 5100);
    EXPECT_EQ(Run(), -2);
    EXPECT_THAT(replayLog.LogBuffer, HasSubstr("from before"));
    EXPECT_LT(replayLog.LogBuffer.size(), 200U);
    const std::string passes = replayLog.LogBuffer.substr(replayLog.LogBuffer.find("no: ") + 4);
    EXPECT_GT(std::stoi(passes), 100);
}

TEST_F(RunJobTest, ARunTimeFailureIsLoggedToo) {
    settings.Display_Executing_Status = 1;
    InEdit().Click(Left, 300, 300).KeyUp(300);
    job.Last().KeyCode() = 301;  // a release before all keystroke rows, which the fold passes over
    std::string told;
    try {
        Run(LogPath);
    } catch (const RuntimeFailure& failure) {
        told = failure.what();
    }
    EXPECT_THAT(told, Not(IsEmpty()));
    EXPECT_THAT(Log(), HasSubstr("  " + told + "\r\n"));
    EXPECT_TRUE(statusViewStandIn.closeButtonVisible);
    EXPECT_FALSE(statusViewStandIn.barVisible) << "the button stands where the bar was";
    EXPECT_THAT(Log(), HasSubstr("Execution of job failed. Reason: \r\n"));
    ExpectAllPutRight();
}

}  // namespace
