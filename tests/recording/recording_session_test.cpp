#include "recording/recording_session.h"

#include "recording/start_app.h"
#include "recording_stage.h"

namespace {

constexpr int LeftShift = 160;
constexpr unsigned WmLeftDown = 513;

class RecordingSessionTest : public RecordingStage {
protected:
    ~RecordingSessionTest() override { startProgram = {}; }

    // With its status form on the screen.
    void StartShown() {
        settings.Display_Recording_Window = 1;
        Start();
    }
    static void PressButton(platform::WindowHandle button, void (*mouseDown)()) {
        simulated::PlaceCursor(simulated::CentreOf(button));
        simulated::UserPresses();
        platform::Pump();  // the hook has seen it; now the form gets it
        mouseDown();
    }
    static void PressStop() { PressButton(recordingViewStandIn.command1, Command1_MouseDown); }
    static void ReleaseCommand2() {
        simulated::UserReleases();
        platform::Pump();
        Command2_MouseUp();
    }
    static void ClickPause() {
        PressButton(recordingViewStandIn.command2, Command2_MouseDown);
        ReleaseCommand2();
    }

    static void Type(const std::string& text) {
        simulated::UserTypes(text);
        platform::Pump();
    }
};

// --- start ---

TEST_F(RecordingSessionTest, AStartReleasesWhatTheSessionBeforeHeld) {
    Start();
    simulated::UserPressesKey(LeftShift);
    Stop();
    EXPECT_LT(platform::AsyncKeyState(LeftShift), 0);
    simulated::ClearJournals();
    Start();
    EXPECT_EQ(platform::AsyncKeyState(LeftShift) & 0x8000, 0);
    ASSERT_EQ(simulated::Journal().size(), 1U);
    EXPECT_EQ(simulated::Journal()[0].record.KeyCode(), 42 * 65536 + LeftShift);
    EXPECT_EQ(simulated::Journal()[0].record.KeyState(), platform::KeyUp);
    EXPECT_EQ(Newest(), -1) << "the hooks come later";
}

TEST_F(RecordingSessionTest, TheProgramIsUpBeforeTheFirstEventAndTheUserKeepsTheForeground) {
    startProgram = {"C:\\paint.exe ", " a.bmp ", 3};
    simulated::ProgramShows("paint", 0, {.className = "Paint"});
    settings.Display_Recording_Window = 1;
    simulated::SetToggle(platform::VirtualKeyCapital, true);
    Start();
    ASSERT_EQ(simulated::StartedPrograms().size(), 1U);
    EXPECT_EQ(simulated::StartedPrograms()[0].commandLine, "C:\\paint.exe a.bmp");
    EXPECT_EQ(simulated::StartedPrograms()[0].windowStyle, 3);
    EXPECT_EQ(simulated::Tray().tip, "Recording... Click here to stop recording.");
    EXPECT_EQ(recordingViewStandIn.command2Caption, "Pause");
    startProgram = {};
    const Job job = Stop();
    EXPECT_EQ(job.StartProgram.ProgramPath, "C:\\paint.exe ");
    EXPECT_EQ(job.CapsLockState, 1);
    EXPECT_EQ(simulated::Tray().tip, "Tessarine 3.0.6");
    EXPECT_FALSE(recordingViewStandIn.loaded);
}

TEST_F(RecordingSessionTest, AProgramThatCannotBeStartedLeavesNoRecordingBehind) {
    startProgram = {"C:\\gone.exe", "", 1};
    simulated::RefuseStarts();
    EXPECT_THROW(StartRecording(), RuntimeFailure);
    EXPECT_FALSE(RecordingActive());
    EXPECT_FALSE(KeyboardHookInstalled());
    EXPECT_TRUE(recordingViewStandIn.mainWindowVisible);
    EXPECT_EQ(simulated::Tray().tip, "Tessarine 3.0.6");
    EXPECT_EQ(recordingViewStandIn.calls.back(), "ShowMainWindow");
}

// --- the three ways to stop ---

TEST_F(RecordingSessionTest, PauseBreakEndsItAndIsNoPartOfIt) {
    Start();
    Type("ab");
    const Job job = Stop();
    EXPECT_THAT(NamesOf(job.Events), ElementsAre("A down", "A up", "B down", "B up"));
    EXPECT_TRUE(recordingSession.stoppedByPauseKey);
    EXPECT_FALSE(RecordingActive());
    EXPECT_THAT(recordingViewStandIn.calls,
                ElementsAre("Unload", "ShowMainWindow", "ShowMainWindow", "ShowSaveAs", "GiveHotkeys"));
    EXPECT_EQ(platform::ForegroundWindow(), ownWindows.main);
    EXPECT_EQ(recordingSession.recordingEvents.Size(), 4) << "trimmed";
    EXPECT_EQ(job.Chains.size(), 2U);
    EXPECT_EQ(job.Windows.size(), 2U);
    EXPECT_EQ(job.Events[0].WindowChainIndex, 0);
}

// The whole desktop waits for a hook procedure.
TEST_F(RecordingSessionTest, TheHookDoesNotWaitForTheEndOfTheRecording) {
    recordingViewStandIn.saveAs = [this] {
        EXPECT_FALSE(platform::InHookCall());
        saved.push_back(RecordedJob());
    };
    simulated::OnMessage(ownWindows.main, [](const simulated::Message&) { StopRecordingFromTray(TrayButton::Left); });
    Start();
    Key('A', 0);
    simulated::UserTaps(PauseBreak);
    simulated::UserTaps('B');
    simulated::UserOnTray(WmLeftDown);
    simulated::UserClicks({5, 5});
    platform::Pump();
    ASSERT_EQ(saved.size(), 1U) << "both ways at once end it once";
    EXPECT_THAT(NamesOf(saved[0].Events), ElementsAre("A down")) << "deaf from the key on";
    Start();
    StopRecordingFromTray(TrayButton::Left);
    EXPECT_EQ(saved.size(), 2U);
}

// Whatever another program sends comes inside a hook call, too: the shell the click on the icon, a screen reader the
// press of the button.
TEST_F(RecordingSessionTest, AStopThatComesInsideAHookCallIsServedOutside) {
    const std::function<void()> stops[] = {
        [] { StopRecordingFromTray(TrayButton::Left); },
        [] { Command1_MouseDown(); },
        [] { EndRecording(); },
    };
    recordingViewStandIn.saveAs = [this] {
        EXPECT_FALSE(platform::InHookCall());
        EXPECT_FALSE(KeyboardHookInstalled());
        saved.push_back(RecordedJob());
    };
    for (const auto& stop : stops) {
        StartShown();
        bool inside = false;
        simulated::OnMessage(ownWindows.main, [&](const simulated::Message&) {
            inside = platform::InHookCall();
            stop();
            stop();
        });
        const std::size_t before = saved.size();
        simulated::UserTaps('A');
        simulated::SendToProgram(ownWindows.main, {});
        platform::Pump();
        EXPECT_TRUE(inside);
        ASSERT_EQ(saved.size(), before + 1) << "once";
        EXPECT_EQ(NameOf(saved.back().Events.at(0)), "A down");
        EXPECT_EQ(RecordingActive(), false);
    }
}

TEST_F(RecordingSessionTest, TheStopButtonLeavesNoTraceOfItsClick) {
    StartShown();
    recordingSession.stoppedByPauseKey = true;
    Type("a");
    PressStop();
    simulated::UserReleases();
    platform::Pump();
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_THAT(NamesOf(saved[0].Events), ElementsAre("A down", "A up"));
    EXPECT_FALSE(recordingSession.stoppedByPauseKey);
}

// What stays down in a job is held down at its replay.
TEST_F(RecordingSessionTest, TheTrayLeavesNoHalfOfItsClick) {
    constexpr std::uint32_t move = 0x200, leftDown = 0x201, rightDown = 0x204, rightUp = 0x205;
    const std::tuple<TrayButton, std::vector<std::uint32_t>> cases[] = {
        {TrayButton::Left, {leftDown}},
        {TrayButton::Left, {leftDown, move, move}},
        {TrayButton::Right, {rightDown, rightUp}},
        {TrayButton::Right, {rightDown, move, rightUp, move}}};
    for (const auto& [button, click] : cases) {
        Start();
        Mouse(leftDown, {400, 300});
        Type("a");
        for (const std::uint32_t message : click) Mouse(message, {1200, 1000});
        StopRecordingFromTray(button);
        EXPECT_THAT(NamesOf(saved.back().Events), ElementsAre("Left down", "A down", "A up")) << click.size();
    }
}

// Nothing of the click was recorded, so nothing may be taken off.
TEST_F(RecordingSessionTest, TheTrayOfAPausedRecordingTakesNothing) {
    StartShown();
    ClickPause();
    StopRecordingFromTray(TrayButton::Left);
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_THAT(saved[0].Events, IsEmpty());
    StartShown();
    Type("a");
    ClickPause();
    StopRecordingFromTray(TrayButton::Left);
    EXPECT_THAT(NamesOf(saved[1].Events), ElementsAre("A down", "A up"));
}

TEST_F(RecordingSessionTest, WhileTheSaveFormIsOpenNothingElseBegins) {
    Start();
    recordingViewStandIn.saveAs = [] {
        EXPECT_TRUE(RecordingActive());
        EXPECT_FALSE(KeyboardHookInstalled());
        StopRecordingFromTray(TrayButton::Left);
        simulated::UserTypes("x");
        platform::Pump();
    };
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    EXPECT_FALSE(RecordingActive());
    EXPECT_EQ(recordingSession.eventCount, 0);
}

TEST_F(RecordingSessionTest, ASaveFormThatFailsLosesNothing) {
    Start();
    Type("a");
    recordingViewStandIn.saveAs = [] { throw RuntimeFailure(FailureKind::Memory, "No form."); };
    recordingViewStandIn.recover = [this] {
        saved.push_back(RecordedJob());
        return "Recovered 1";
    };
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_THAT(NamesOf(saved[0].Events), ElementsAre("A down", "A up"));
    EXPECT_THAT(recordingViewStandIn.calls, testing::Contains("SaveRecovered, shown"));
    EXPECT_EQ(simulated::ShownBoxes().back().text, "No form.\r\nWhat was recorded is saved as 'Recovered 1'.");
    EXPECT_FALSE(RecordingActive());
    EXPECT_EQ(recordingViewStandIn.calls.back(), "GiveHotkeys");
}

// Windows ends, at whatever moment of a recording.
TEST_F(RecordingSessionTest, ARescueWritesWhatThereIsAndAsksNobody) {
    constexpr int insideAHookCall = 4;
    int rescued = 0;
    recordingViewStandIn.recover = [&rescued] {
        ++rescued;
        EXPECT_FALSE(KeyboardHookInstalled());
        EXPECT_THAT(NamesOf(RecordedJob().Events), ElementsAre("A down", "A up"));
        return "Recovered";
    };
    RescueRecording();
    EXPECT_EQ(rescued, 0) << "idle";
    for (int moment = 1; moment <= insideAHookCall; ++moment) {
        StartShown();
        recordingViewStandIn.saveAs = [] { RescueRecording(); };
        Type("a");
        if (moment == 1) RescueRecording();
        if (moment == 2) ClickPause(), RescueRecording();
        if (moment == 3) EndRecording();  // while the Save As form is open
        if (moment == insideAHookCall) {
            simulated::OnMessage(ownWindows.main, [](const simulated::Message&) { RescueRecording(); });
            simulated::UserTaps(PauseBreak);
            simulated::SendToProgram(ownWindows.main, {});
            platform::Pump();
        }
        EXPECT_EQ(rescued, moment);
        recordingSession.state = RecordingState::Idle;  // the process would have ended
    }
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
    EXPECT_THAT(saved, IsEmpty());
}

// The time of an event has 32 bits.
TEST_F(RecordingSessionTest, AfterManyDaysTheTimeStandsStill) {
    Start();
    simulated::RunFor(1000);
    recordingSession.recordingStartTick -= 30LL * 24 * 3600 * 1000;
    Key('A', 0);
    EXPECT_EQ(Event(0).time(), 2147483647);
}

// --- pause ---

TEST_F(RecordingSessionTest, APauseLeavesNoEventAndNoGap) {
    StartShown();
    simulated::RunFor(1000);
    Type("a");
    simulated::RunFor(500);
    ClickPause();
    EXPECT_EQ(recordingViewStandIn.label1, "PAUSED");
    EXPECT_EQ(recordingViewStandIn.command2Caption, "Resume");
    simulated::SetFocus(edit);
    Type("lost");
    simulated::RunFor(10'000);
    Command2_MouseMove();
    ClickPause();
    EXPECT_EQ(recordingViewStandIn.label1, "Recording");
    EXPECT_EQ(platform::ForegroundWindow(), notepad) << "the user goes on where he was";
    simulated::RunFor(200);
    Type("b");
    const Job job = Stop();
    EXPECT_THAT(NamesOf(job.Events), ElementsAre("A down", "A up", "B down", "B up"));
    EXPECT_EQ(job.Events[0].time(), 1000);
    EXPECT_EQ(job.Events[2].time(), 1700);
}

TEST_F(RecordingSessionTest, ThePauseKeyIsDeafWhilePausedAndTheStopButtonIsNot) {
    StartShown();
    Type("a");
    ClickPause();
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    EXPECT_TRUE(RecordingActive());
    PressStop();
    EXPECT_FALSE(RecordingActive());
    EXPECT_THAT(NamesOf(saved.at(0).Events), ElementsAre("A down", "A up"));
}

TEST_F(RecordingSessionTest, AQuickSecondClickDoesNotResume) {
    StartShown();
    const std::int64_t pressed = platform::TickCount();
    ClickPause();
    simulated::RunFor(999);
    ClickPause();
    EXPECT_TRUE(RecordingPaused());
    simulated::RunFor(1);
    EXPECT_EQ(platform::TickCount(), pressed + 1000);
    ReleaseCommand2();
    EXPECT_FALSE(RecordingPaused());
}

TEST_F(RecordingSessionTest, TheFormTellsTheTimeAndBlinks) {
    StartShown();
    std::vector<std::string> told;
    const auto wait = [&told](int seconds) {
        for (int i = 0; i < seconds; ++i) {
            simulated::RunFor(1000);
            told.push_back(recordingViewStandIn.info);
        }
    };
    wait(2);
    EXPECT_EQ(recordingViewStandIn.info, "Pause/Break to stop");
    EXPECT_EQ(recordingViewStandIn.time, "00:00:02");
    ClickPause();
    told.clear();
    wait(5);
    EXPECT_THAT(told, ElementsAre("Pause/Break to stop", "Resume to resume", "Resume to resume", "Recording paused",
                                  "Recording paused"));
    EXPECT_EQ(recordingViewStandIn.time, "00:00:02");
    EXPECT_FALSE(recordingViewStandIn.indicator);
}

// --- a piece for an open job ---

class InsertRecording : public RecordingSessionTest {
protected:
    InsertRecording() {
        recordingViewStandIn.editor = [this] {
            piece = recordingSession.recordingEvents.First(recordingSession.eventCount);
        };
    }

    std::vector<JobEvent> piece;
};

TEST_F(InsertRecording, APieceContinuesTimeWindowsAndChainsOfItsJob) {
    Start();
    Type("a");
    Job job = Stop();
    recordingViewStandIn.calls.clear();
    saved.clear();
    settings.Display_Recording_Window = 1;
    StartInsertRecording(platform::TickCount() - 7000, job.Windows, job.Chains);
    EXPECT_THAT(recordingViewStandIn.calls,
                ElementsAre("MinimiseMainWindow", "PutEditorAside", "HideMainWindow", "Show"));
    EXPECT_EQ(recordingViewStandIn.time, "00:00:07");
    EXPECT_EQ(recordingSession.eventCapacity, 100);
    EXPECT_EQ(windowArrays.chainCapacity, 101);
    simulated::SetFocus(edit);
    simulated::RunFor(1050);
    EXPECT_EQ(recordingViewStandIn.time, "00:00:08");
    Type("b");
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    ASSERT_THAT(NamesOf(piece), ElementsAre("B down", "B up"));
    EXPECT_EQ(piece[0].time(), 8050);
    EXPECT_EQ(piece[0].WindowChainIndex, 1);
    EXPECT_EQ(windowArrays.windows.size(), 2U) << "those of the job";
    EXPECT_THAT(saved, IsEmpty());
    EXPECT_FALSE(RecordingActive());
    Start();
    Stop();
    EXPECT_EQ(saved.size(), 1U) << "the next recording is an ordinary one";
}

TEST_F(InsertRecording, ItCannotBePaused) {
    StartInsertRecording(platform::TickCount(), {}, {});
    EXPECT_EQ(recordingViewStandIn.command2Caption, "Resume");
    Command2_MouseDown();
    simulated::RunFor(1500);
    Command2_MouseUp();
    EXPECT_FALSE(RecordingPaused());
    EXPECT_EQ(recordingViewStandIn.command2Caption, "Resume");
    Type("a");
    Command1_MouseDown();
    EXPECT_EQ(piece.size(), 2U);
}

TEST_F(InsertRecording, ItIsRefusedBesideAHookAndGoesOnWithoutOne) {
    platform::InstallKeyboardHook([](const platform::KeyboardHookRecord&) {});
    StartInsertRecording(0, {}, {});
    EXPECT_EQ(simulated::ShownBoxes().back().text, "Greska! MouseHook <> 0 i KeyboardHook <>0");
    EXPECT_FALSE(RecordingActive());
    EXPECT_THAT(recordingViewStandIn.calls, IsEmpty());
    platform::RemoveKeyboardHook();
    simulated::RefuseHooks();
    StartInsertRecording(0, {}, {});
    EXPECT_EQ(simulated::ShownBoxes().back().text, "Greska2!");
    EXPECT_TRUE(RecordingActive());
    StopRecordingFromTray(TrayButton::Left);
    EXPECT_FALSE(RecordingActive());
}

}  // namespace
