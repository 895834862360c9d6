// A start of the program from the first question to the window on the screen, and its end.
#include "shell/startup.h"

#include "dictionary/dictionary.h"
#include "mainwindow/form_visible.h"
#include "mainwindow/tray_events.h"
#include "platform/instances.h"
#include "platform/registry.h"
#include "platform/tray.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "replay/timing.h"
#include "scheduler/schedule_dispatch.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "shell/copy_data.h"
#include "shell/exit.h"
#include "shell/handed_over.h"
#include "shell/language_selection.h"
#include "sounds/sounds.h"
#include "support/recording_view_stand_in.h"
#include "support/shell_stand_in.h"
#include "support/story.h"
#include "update/version_check.h"

namespace {

int versionChecks = 0;

}  // namespace

void CheckVersionQuietly() {
    ++versionChecks;
}

namespace {

constexpr const char* Documents = "C:\\Users\\Ana\\Documents";
constexpr const char* DataFolder = "C:\\Users\\Ana\\Documents\\Tessarine";
constexpr const char* ShellFolders = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const char* FirstJob = "C:\\a.tsj";
constexpr const char* SoundBank = "c:\\program files\\tessarine\\sounds.bin";

class Start : public testing::Test {
protected:
    Start() {
        platform::WriteRegistry(ShellFolders, "Personal", std::string(Documents) + "\\");
        simulated::PutFolder(Documents);
        simulated::PutFile(FirstJob, "any bytes");
        simulated::SetExecutableFolder("C:\\Program Files\\Tessarine");
        simulated::PutFile(SoundBank, "damaged");
        simulated::SetDesktopDirectory("C:\\Users\\Ana\\Desktop");
        SetLanguage(LanguageEnglish);
    }

    // The main window of the program's first instance.
    static platform::WindowHandle FirstInstance(const std::string& caption = MainCaption()) {
        simulated::LetAnotherInstanceRun(caption);
        return simulated::AddWindow({.className = MainWindowClass, .caption = caption, .active = false});
    }

    static void ExpectNothingPrepared() {
        EXPECT_TRUE(shellStandIn.calls.empty());
        EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "DataDir"), std::nullopt);
    }
};

TEST_F(Start, OnACleanMachineMakesTheFolderAndShowsTheWindow) {
    EXPECT_TRUE(Main());
    EXPECT_EQ(folders.PersonalFolder, Documents);
    EXPECT_EQ(folders.DataFolder, DataFolder);
    EXPECT_EQ(folders.ProgramFolder, "C:\\Program Files\\Tessarine");
    EXPECT_EQ(folders.DesktopFolder, "C:\\Users\\Ana\\Desktop");
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "DataDir"), DataFolder);
    EXPECT_THAT(simulated::AllFiles(), ElementsAre("c:\\a.tsj", SoundBank)) << "no settings before the first save";
    EXPECT_TRUE(settings.SettingsLoaded);
    EXPECT_EQ(settings.countdown_period, 5);
    EXPECT_TRUE(MainWindowVisible());
    EXPECT_THAT(shellStandIn.calls,
                ElementsAre("CreateMainWindow", "PrepareMainWindow", "InstallProcedures", "RestoreWindowPosition",
                            "ShowOptions", "Show", "PodesiRjecnik", "StaviFocus"));
    EXPECT_TRUE(scheduleDispatch.DispatchEnabled);
    EXPECT_EQ(folders.StartedAt, "");
    EXPECT_TRUE(simulated::ShownBoxes().empty());
    EXPECT_EQ(versionChecks, 0) << "a first start asks no server";
    SaveSettings();
    Main();
    EXPECT_EQ(versionChecks, 1);
}

TEST_F(Start, OfANewUserOffersTheLanguagesBeforeAnythingIsShown) {
    struct Case {
        std::string stored, commandLine;
        bool offered;
    };
    const Case cases[] = {{"", "", true},        {"xx", "-edit C:\\a.tsj", true}, {"en", "", false},
                          {"sp", "", false},     {"", "-RUN C:\\a.tsj", false},   {"", " -startup", false},
                          {"", "anything", true}};
    for (const auto& [stored, commandLine, offered] : cases) {
        SCOPED_TRACE("'" + stored + "' '" + commandLine + "'");
        platform::WriteRegistry("Software\\Tessarine", "Language", stored);
        OfferLanguages(commandLine);
        EXPECT_EQ(WasCalled("LanguageSelection"), offered);
        shellStandIn = {};
    }
    simulated::PutFile(std::string(DataFolder) + "\\settings.binary", "damaged");
    platform::WriteRegistry("Software\\Tessarine", "Language", "xx");
    shellStandIn.duringLanguageSelection = [] {
        EXPECT_THAT(Boxes(), IsEmpty());
        EXPECT_EQ(RowOfStoredLanguage(), 0);
        TakeLanguage(-1);
        TakeLanguage(4);
        EXPECT_EQ(StoredLanguage(), std::nullopt);
        TakeLanguage(2);
        EXPECT_EQ(RowOfStoredLanguage(), 2);
    };
    EXPECT_TRUE(Main());
    EXPECT_EQ(PlaceOf("LanguageSelection"), 0);
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "Language"), "sp");
    EXPECT_THAT(LastBox(), HasSubstr("configuraci")) << "the boxes of the start speak it already";
}

TEST_F(Start, RemovesWhatKilledSavesHaveLeft) {
    simulated::PutFile(std::string(DataFolder) + "\\~00000rk.tmp", "half a job");
    EXPECT_TRUE(Main());
    EXPECT_THAT(simulated::AllFiles(), ElementsAre("c:\\a.tsj", SoundBank));
}

TEST_F(Start, WithTheComputerStaysHiddenAndNotesItsTime) {
    simulated::SetCommandLine(" -startup");
    simulated::SetLocalTime({2026, 3, 5, 7, 4, 9});
    EXPECT_TRUE(Main());
    EXPECT_FALSE(WasCalled("Show"));
    EXPECT_EQ(formVisibility.visible, false);
    EXPECT_EQ(folders.StartedAt, "2026-03-05@07:04:09");
}

TEST_F(Start, WithTheWordInAFileNameRunsNothing) {
    simulated::PutFile("C:\\startup.tsj", "any bytes");
    simulated::SetCommandLine("-run C:\\startup.tsj");
    EXPECT_TRUE(Main());
    EXPECT_FALSE(WasCalled("RunJob C:\\startup.tsj"));
    EXPECT_FALSE(MainWindowVisible());
}

TEST_F(Start, ToRunAJobNeverShowsTheWindowAndEndsTheProcess) {
    simulated::SetCommandLine(std::string("-run ") + FirstJob);
    EXPECT_THROW(Main(), ProcessEnded);
    EXPECT_TRUE(WasCalled("RunJob C:\\a.tsj"));
    EXPECT_FALSE(WasCalled("Show"));
    EXPECT_EQ(simulated::FileBytes(std::string(DataFolder) + "\\settings.binary"), std::nullopt);
}

TEST_F(Start, GoesOnAfterAFailureThatItHasTold) {
    simulated::SetCommandLine(std::string("-run ") + FirstJob);
    shellStandIn.duringRun = [] { throw RuntimeFailure(FailureKind::File, "The job is damaged."); };
    EXPECT_TRUE(Main());
    EXPECT_THAT(Boxes(), ElementsAre("Tessarine|The job is damaged."));
    EXPECT_TRUE(WasCalled("PodesiRjecnik"));
}

// Settled before the options are shown and the command line is acted on.
TEST_F(Start, TellsThatTheSoundBankIsMissingAndGoesOn) {
    simulated::LosePath(SoundBank);
    simulated::SetCommandLine(std::string("-run ") + FirstJob);
    simulated::AnswerNextBox({.whileOpen = [] { EXPECT_FALSE(WasCalled("ShowOptions")); }});
    EXPECT_THROW(Main(), ProcessEnded);
    EXPECT_THAT(Boxes(), ElementsAre("Tessarine|Sound cannot be initialized: 'sounds.bin' File is missing"));
    EXPECT_FALSE(SoundSwitchesEnabled());
    EXPECT_LT(PlaceOf("ShowOptions"), PlaceOf("RunJob C:\\a.tsj"));
}

TEST_F(Start, WithoutACommandRaisesTheFirstInstanceAndEnds) {
    const platform::WindowHandle first = FirstInstance();
    simulated::AddWindow({});  // another program has the foreground
    EXPECT_FALSE(Main());
    ASSERT_EQ(simulated::SentMessages().size(), 1U);
    EXPECT_EQ(simulated::SentMessages()[0].window, first);
    EXPECT_EQ(simulated::SentMessages()[0].message.message, 123456U);
    EXPECT_EQ(platform::ForegroundWindow(), first);
    EXPECT_TRUE(simulated::MayComeForward(first));
    ExpectNothingPrepared();
}

// Two starts at the same moment: the first has nothing yet that could be spoken to.
TEST_F(Start, KnocksUntilTheDoorOfTheFirstIsThere) {
    simulated::LetAnotherInstanceRun(MainCaption());
    simulated::SetCommandLine("-run C:\\a.tsj");
    const auto door = simulated::AppearsAfter(
        300, {.className = platform::DoorClass, .caption = MainCaption(), .visible = false, .active = false});
    EXPECT_FALSE(Main());
    EXPECT_GE(platform::TickCount(), 300);
    ASSERT_EQ(simulated::SentMessages().size(), 1U);
    EXPECT_EQ(simulated::SentMessages()[0].window, door);
    EXPECT_TRUE(simulated::MayComeForward(door));
    ExpectNothingPrepared();
}

TEST_F(Start, DoesNotRunAJobAgainThatTheFirstHadBegunWhenItEnded) {
    for (const bool hadBegun : {true, false}) {
        simulated::SetCommandLine("-run C:\\a.tsj");
        const platform::WindowHandle first = FirstInstance();
        simulated::OnMessage(first, [&](const simulated::Message&) {
            if (hadBegun) platform::TellBegun("-run C:\\a.tsj");
            simulated::Destroy(first);
            simulated::LetAnotherInstanceRun(MainCaption(), false);
        });
        if (hadBegun) {
            EXPECT_FALSE(Main());
            ExpectNothingPrepared();
        } else {
            EXPECT_THROW(Main(), ProcessEnded);
            EXPECT_TRUE(WasCalled("RunJob C:\\a.tsj"));
        }
    }
}

TEST_F(Start, TellsOfAFirstThatDoesNotAnswerAndEnds) {
    simulated::LetAnotherInstanceRun(MainCaption());
    EXPECT_FALSE(Main());
    EXPECT_EQ(LastBox(), "Tessarine|Tessarine is running already, but does not answer. Please try again in a moment.");
    ExpectNothingPrepared();
}

// What comes while a box of the start is open is done when the start is, in order, and not before.
TEST_F(Start, DoesAfterItWhatWasHandedOverDuringABoxOfIt) {
    struct Case {
        std::string commandLine;
        std::vector<std::string> sent;  // empty: the wish to be shown
        std::vector<std::string> done;
        bool ends;
    };
    const std::string a = "RunJob C:\\a.tsj", b = "RunJob C:\\b.tsj";
    const Case cases[] = {{"", {"-run C:\\a.tsj", "-run C:\\b.tsj"}, {a, b}, false},
                          {"", {"-run C:\\b.tsj", "-run C:\\none.tsj"}, {b, "EndProcess"}, true},
                          {" -startup", {"-run C:\\b.tsj", ""}, {b, "StaviFocus"}, false},
                          {"-run C:\\a.tsj", {"-run C:\\b.tsj"}, {a, b, "EndProcess"}, true},
                          {"-run C:\\a.tsj", {"-run C:\\none.tsj", "-run C:\\b.tsj"}, {a, b, "EndProcess"}, true},
                          {"-run C:\\a.tsj", {""}, {a, "Show"}, false}};
    simulated::PutFile("C:\\b.tsj", "any bytes");
    for (const Case& one : cases) {
        SCOPED_TRACE("'" + one.commandLine + "', then '" + one.sent.front() + "'");
        shellStandIn = {};
        formVisibility = {};
        simulated::SetCommandLine(one.commandLine);
        simulated::PutFile(std::string(DataFolder) + "\\settings.binary", "damaged");
        simulated::AnswerNextBox({.whileOpen = [&one] {
            const auto door = platform::FindTopWindow(platform::DoorClass, MainCaption());
            for (const std::string& line : one.sent) {
                EXPECT_TRUE(line.empty() ? platform::SendPlainMessage(door, ShowYourselfMessage)
                                         : platform::SendCopyData(door, CopyDataOfCommand(line)));
            }
            EXPECT_TRUE(shellStandIn.calls.empty());
        }});
        bool ended = false;
        try {
            EXPECT_TRUE(Main());
            simulated::RunFor(2000);
        } catch (const ProcessEnded&) {
            ended = true;
        }
        EXPECT_EQ(ended, one.ends);
        int last = -1;
        for (const std::string& call : one.done) {
            EXPECT_GT(PlaceOf(call), last) << call;
            last = PlaceOf(call);
        }
        EXPECT_TRUE(handedOver.waiting.empty());
        EXPECT_EQ(platform::FindTopWindow(platform::DoorClass, MainCaption()), 0);
    }
}

// The job runner would refuse it without a word.
TEST_F(Start, KeepsAJobThatIsHandedOverDuringARunUntilTheRunIsOver) {
    simulated::PutFile("C:\\b.tsj", "any bytes");
    Main();
    runState.ReplayRunning = true;
    OnCommandHandedOver("-run C:\\b.tsj");
    OnCommandHandedOver("-run C:\\a.tsj");
    simulated::RunFor(5000);
    EXPECT_FALSE(WasCalled("RunJob C:\\b.tsj"));
    runState.ReplayRunning = false;
    simulated::RunFor(1000);
    EXPECT_LT(PlaceOf("RunJob C:\\b.tsj"), PlaceOf("RunJob C:\\a.tsj"));
    EXPECT_TRUE(WasCalled("RunJob C:\\b.tsj"));
    EXPECT_EQ(handedOver.timer, 0);
}

TEST_F(Start, HandsItsCommandLineToTheFirstInstance) {
    const std::string longest = "-run " + std::string(250, 'x');
    for (const std::string& line : {std::string("-run C:\\a.tsj"), longest}) {
        FirstInstance();
        simulated::SetCommandLine(line);
        EXPECT_FALSE(Main());
        EXPECT_EQ(simulated::SentMessages().back().message.message, 74U);
        EXPECT_EQ(simulated::SentMessages().back().message.bytes, line + '\0');
    }
    ExpectNothingPrepared();
}

TEST_F(Start, GoesOnBesideAnInstanceOfAnotherVersion) {
    FirstInstance("Tessarine 3.0.5");
    EXPECT_TRUE(Main());
    EXPECT_TRUE(simulated::SentMessages().empty());
    EXPECT_TRUE(MainWindowVisible());
}

TEST_F(Start, OfASecondInstanceBringsAHiddenAndMinimisedWindowBack) {
    Main();
    shellStandIn.minimised = true;
    FormResized();
    EXPECT_FALSE(shellStandIn.visible);
    OnShowYourself();
    EXPECT_TRUE(shellStandIn.visible);
    EXPECT_FALSE(shellStandIn.minimised);
    EXPECT_EQ(shellStandIn.calls.back(), "StaviFocus");
}

class End : public Start {};

TEST_F(End, GivesBackWhatWasTakenInOrder) {
    Main();
    shellStandIn.calls.clear();
    EXPECT_THROW(QuitProgram(true), ProcessEnded);
    EXPECT_THAT(shellStandIn.calls, ElementsAre("Hide", "RestoreJobListProcedure", "RestoreScheduleListProcedure",
                                                "RestoreMainProcedure", "RemoveTrayIcon", "EndProcess"));
    EXPECT_TRUE(simulated::FileBytes(std::string(DataFolder) + "\\settings.binary"));
}

TEST_F(End, ThatCannotSaveAsksFirst) {
    Main();
    simulated::MakeReadOnly(DataFolder);
    simulated::AnswerNextBox({.yes = false});
    QuitProgram(true);
    EXPECT_THAT(simulated::ShownBoxes().back().text, EndsWith("\r\nDo you really want to exit Tessarine?"));
    EXPECT_FALSE(WasCalled("EndProcess"));
    EXPECT_TRUE(MainWindowVisible());
    simulated::AnswerNextBox({.yes = true});
    EXPECT_THROW(QuitProgram(true), ProcessEnded);
}

TEST_F(End, InTheMiddleOfARunLeavesNoKeyDown) {
    constexpr int control = 17;
    Main();
    KeyDownFlag(control) = true;
    EXPECT_THROW(QuitProgram(false), ProcessEnded);
    ASSERT_EQ(simulated::Journal().size(), 1U);
    EXPECT_EQ(simulated::Journal()[0].record.KeyCode() % 65536, control);
    EXPECT_EQ(simulated::Journal()[0].record.KeyState(), platform::KeyUp);
}

class MainWindowVisibility : public Start {
protected:
    MainWindowVisibility() {
        Main();
        shellStandIn.calls.clear();
    }

    static void Resize(bool minimised) {
        shellStandIn.minimised = minimised;
        FormResized();
    }
};

TEST_F(MainWindowVisibility, FollowsTheStateOfTheWindowAndNotItsSize) {
    Resize(true);
    EXPECT_FALSE(shellStandIn.visible);
    EXPECT_EQ(shellStandIn.trayOpenCaption, "&Show Tessarine");
    Resize(false);
    EXPECT_TRUE(shellStandIn.visible);
    EXPECT_EQ(shellStandIn.trayOpenCaption, "&Hide Tessarine");
    FormVisible(false, false);
    Resize(false);
    EXPECT_FALSE(shellStandIn.visible);
}

TEST_F(MainWindowVisibility, KeepsTheStateOnlyWhenAsked) {
    Resize(true);
    FormVisible(true, true);
    EXPECT_TRUE(shellStandIn.minimised);
    FormVisible(false, false);
    FormVisible(true, false);
    EXPECT_FALSE(shellStandIn.minimised);
}

TEST_F(MainWindowVisibility, TogglesOncePerDoubleClick) {
    simulated::RunFor(1000);
    OnTrayMessage(TrayLeftDoubleClick);
    OnTrayMessage(TrayLeftDoubleClick);
    EXPECT_FALSE(shellStandIn.visible);
    simulated::RunFor(79);
    OnTrayMessage(TrayLeftDoubleClick);
    EXPECT_FALSE(shellStandIn.visible);
    simulated::RunFor(1);
    OnTrayMessage(TrayLeftDoubleClick);
    EXPECT_TRUE(shellStandIn.visible);
}

TEST_F(MainWindowVisibility, IsLeftAloneByTheTrayWhileTheInterfaceIsHeld) {
    for (const bool running : {false, true}) {
        shellStandIn.enabled = running;
        runState.ReplayRunning = running;
        OnTrayMessage(TrayLeftDoubleClick);
        OnTrayMessage(TrayRightUp);
        EXPECT_TRUE(shellStandIn.calls.empty()) << (running ? "during a run" : "during a box");
    }
    // Nothing is under way then, and to end the program is all that is left.
    runState.programWasMissing = true;
    shellStandIn.enabled = false;
    OnTrayMessage(TrayLeftDoubleClick);
    EXPECT_TRUE(shellStandIn.calls.empty());
    OnTrayMessage(TrayRightUp);
    EXPECT_TRUE(WasCalled("OpenTrayMenu"));
    runState = {};
    shellStandIn.enabled = true;
    shellStandIn.calls.clear();
    OnTrayMessage(TrayLeftDown);
    EXPECT_TRUE(shellStandIn.calls.empty());
    OnTrayMessage(TrayRightUp);
    EXPECT_TRUE(WasCalled("OpenTrayMenu"));
}

TEST_F(MainWindowVisibility, TellsOnceForGoodThatClosingEndsNothing) {
    platform::AddTrayIcon(1, "tip");
    for (int again = 0; again < 2; ++again) {
        FormVisible(true, false);
        CloseToTray();
        EXPECT_FALSE(shellStandIn.visible);
        EXPECT_EQ(simulated::Tray().balloons.size(), 1U);
    }
    EXPECT_TRUE(simulated::Tray().balloons[0].starts_with("Tessarine: Tessarine goes on running"));
}

// Else the job would press the icon at every replay.
TEST_F(MainWindowVisibility, AClickOnTheIconEndsARecordingAndIsNoPartOfIt) {
    constexpr std::uint32_t leftDown = 0x201, rightDown = 0x204, rightUp = 0x205;
    const std::pair<unsigned, std::vector<std::uint32_t>> cases[] = {{TrayLeftDown, {leftDown}},
                                                                     {TrayRightUp, {rightDown, rightUp}}};
    std::optional<std::size_t> saved;
    recordingViewStandIn.saveAs = [&] { saved = RecordedJob().Events.size(); };
    for (const auto& [message, click] : cases) {
        saved.reset();
        StartRecording();
        for (const std::uint32_t each : click) MouseHookProc({each, {1200, 1000}, 0, 0, 0, 0});
        OnTrayMessage(message);
        platform::Pump();
        EXPECT_FALSE(RecordingActive());
        EXPECT_EQ(saved, 0U) << message;
    }
}

}  // namespace
