#include "recording/record_button.h"

#include "dictionary/dictionary.h"
#include "platform/files.h"
#include "platform/text.h"
#include "recording/countdown.h"
#include "recording/start_app.h"
#include "recording_stage.h"
#include "support/wording.h"

using testing::Pair;

namespace {

class RecordButton : public RecordingStage {
protected:
    RecordButton() {
        settings.Display_Recording_Window = 1;
        recordingViewStandIn.calls.clear();
    }

    static std::vector<std::string>& Calls() { return recordingViewStandIn.calls; }
};

TEST_F(RecordButton, AsksCountsAndStarts) {
    settings.Display_Start_Program_Dialog = 1;
    settings.display_countdown_check = 1;
    settings.countdown_period = 3;
    recordingViewStandIn.startApp = [] { startProgram = {"C:\\a.exe", "b", 2}; };
    RecordNewJob();
    EXPECT_THAT(Calls(), ElementsAre("TakeHotkeys", "start_app", "MinimiseMainWindow", "counter", "counter gone",
                                     "HideMainWindow", "Show"));
    EXPECT_THAT(recordingViewStandIn.numbers, ElementsAre(Pair(0, 3), Pair(1000, 2), Pair(2000, 1)));
    EXPECT_TRUE(RecordingActive());
    EXPECT_TRUE(KeyboardHookInstalled());
    EXPECT_EQ(simulated::StartedPrograms().size(), 1U);
    Calls().clear();
    RecordNewJob();
    EXPECT_THAT(Calls(), IsEmpty()) << "one at a time";
}

TEST_F(RecordButton, ACancelPutsEverythingBack) {
    settings.Display_Start_Program_Dialog = 1;
    recordingViewStandIn.startApp = CancelStartApp;
    RecordNewJob();
    EXPECT_THAT(Calls(), ElementsAre("TakeHotkeys", "start_app", "GiveHotkeys"));
    EXPECT_FALSE(RecordingActive());
    Calls().clear();
    settings.Display_Start_Program_Dialog = 0;
    settings.Display_Recording_Window = 0;
    recordingViewStandIn.userIsReady = false;
    RecordNewJob();
    EXPECT_THAT(Calls(), ElementsAre("TakeHotkeys", "AskToStart", "GiveHotkeys"));
    EXPECT_EQ(startProgram.ProgramPath, "") << "no dialog, no program";
    EXPECT_EQ(recordingViewStandIn.question,
              "Click OK when you are ready to start recording\r\nTo stop recording pressPause/Break key");
    EXPECT_FALSE(RecordingActive());
}

// English alone leaves out the blank before the key.
TEST_F(RecordButton, TellsInEveryLanguageHowARecordingEnds) {
    settings.Display_Recording_Window = 0;
    recordingViewStandIn.userIsReady = false;
    const std::pair<int, std::string> cases[] = {
        {LanguageGerman, "Zum Beenden der Aufnahme drücken Sie die Taste Pause/Untbr"},
        {LanguageFrench, "Pour arrêter l'enregistrement, appuyez sur la touche Pause/Attn"},
        {LanguageSpanish, "Para detener la grabación, pulse la tecla Pausa/Inter"},
    };
    for (const auto& [language, hint] : cases) {
        SetLanguage(language);
        RecordNewJob();
        EXPECT_THAT(platform::ToUtf8(recordingViewStandIn.question), EndsWith("\r\n" + hint));
        EXPECT_THAT(FaultsOf(recordingViewStandIn.question), IsEmpty());
    }
}

// The pump behind TakeHotkeys lets a second press in.
TEST_F(RecordButton, OneRecordingIsPreparedAtATime) {
    simulated::After(0, [] {
        EXPECT_TRUE(RecordingActive());
        RecordNewJob();
    });
    RecordNewJob();
    EXPECT_THAT(Calls(), ElementsAre("TakeHotkeys", "MinimiseMainWindow", "HideMainWindow", "Show"));
}

TEST_F(RecordButton, AFormThatCannotBeLoadedLeavesTheNextRecordingPossible) {
    recordingViewStandIn.onLoad = [] { throw RuntimeFailure(FailureKind::Memory, "No form."); };
    EXPECT_THROW(RecordNewJob(), RuntimeFailure);
    EXPECT_FALSE(RecordingActive());
    EXPECT_THAT(Calls(), testing::IsSupersetOf({"GiveHotkeys", "ShowMainWindow"}));
    recordingViewStandIn.calls.clear();
    EXPECT_THROW(StartInsertRecording(0, {}, {}), RuntimeFailure);
    EXPECT_FALSE(RecordingActive());
    EXPECT_THAT(Calls(), testing::IsSupersetOf({"ZavrsiUmetanjeSnimanjem", "GiveHotkeys", "ShowMainWindow"}));
    recordingViewStandIn.onLoad = nullptr;
    RecordNewJob();
    EXPECT_TRUE(KeyboardHookInstalled());
    EXPECT_FALSE(recordingSession.insertingRecording);
}

TEST_F(RecordButton, IsDeadDuringARunAndWhileKeysAreListenedTo) {
    recordingViewStandIn.runUnderWay = true;
    RecordNewJob();
    recordingViewStandIn.runUnderWay = false;
    platform::InstallKeyboardHook([](const platform::KeyboardHookRecord&) {});
    RecordNewJob();
    EXPECT_THAT(Calls(), IsEmpty());
}

// --- start_app ---

TEST(StartApp, TakesAProgramOnly) {
    platform::MakeFolder("C:\\p");
    for (const char* name : {"a.exe", "a.COM", "a.Bat", "a.txt", "exe"})
        platform::File::Create(std::string("C:\\p\\") + name);
    const std::string wrong = "File must have .exe extension!";
    const std::pair<std::string, std::string> cases[] = {
        {"C:\\p\\a.exe", ""},    {"C:\\p\\a.COM", ""},  {"C:\\p\\a.Bat", ""},
        {"C:\\p\\a.txt", wrong}, {"C:\\p\\exe", wrong}, {"C:\\p\\b.exe", "C:\\p\\b.exe\r\nFile does not exist"}};
    std::size_t boxes = 0;
    for (const auto& [name, box] : cases) {
        startProgram = {};
        StartAppControls controls;
        TakeChosenProgram(controls, name);
        EXPECT_EQ(AcceptStartApp(controls), box.empty()) << name;
        EXPECT_EQ(startProgram.ProgramPath, box.empty() ? name : "");
        if (box.empty()) continue;
        ASSERT_EQ(simulated::ShownBoxes().size(), ++boxes) << name;
        EXPECT_EQ(simulated::ShownBoxes().back().text, box);
    }
}

TEST(StartApp, CarriesParametersAndStyleWhenTheyAreWanted) {
    platform::MakeFolder("C:\\p");
    platform::File::Create("C:\\p\\a.exe");
    StartAppControls controls;
    controls.text_command_line = "-x";
    TakeChosenProgram(controls, "C:\\p\\a.exe");
    const std::pair<int, int> styles[] = {{-1, 1}, {0, 1}, {1, 3}, {2, 2}, {3, 1}};
    for (const auto& [item, style] : styles) {
        controls.Combo1 = item;
        controls.Check2 = item == 1;
        EXPECT_TRUE(AcceptStartApp(controls));
        EXPECT_EQ(startProgram.WindowStyle, style) << item;
        EXPECT_EQ(startProgram.CommandLine, item == 1 ? "-x" : "");
    }
    controls.Check1 = false;
    EXPECT_TRUE(AcceptStartApp(controls));
    EXPECT_EQ(startProgram.ProgramPath + startProgram.CommandLine, "");
    EXPECT_FALSE(StartAppCanceled());
    CancelStartApp();
    EXPECT_TRUE(StartAppCanceled());
}

// --- countdown and status form ---

TEST(Countdown, DigitsStandOutFromTheScreen) {
    EXPECT_TRUE(IsLight({0x808080}));
    EXPECT_FALSE(IsLight({0x7F7F80}));
    EXPECT_TRUE(IsLight({0xFFFFFF, 0x010203, 0xFFFFFFFF})) << "one was not read";
    EXPECT_FALSE(IsLight({0xFFFFFFFF})) << "nothing was read";
    recordingViewStandIn.screenColour = 0xC08040;
    ProvjeriBoju();
    EXPECT_TRUE(recordingViewStandIn.digitsBlack);
    EXPECT_EQ(recordingViewStandIn.pixelsRead, 20U * 10U) << "every fifth pixel";
}

TEST(Countdown, OfNothingShowsItselfAndGoesOn) {
    settings.countdown_period = 0;
    CountDown();
    EXPECT_THAT(recordingViewStandIn.calls, ElementsAre("counter", "counter gone"));
    EXPECT_THAT(recordingViewStandIn.numbers, IsEmpty());
}

TEST(RecordingStatusForm, JumpsToTheOtherSide) {
    const std::tuple<std::int32_t, int, std::int32_t> cases[] = {{10, 96, 1060}, {133, 96, 1060},  {134, 96, 20},
                                                                 {1060, 96, 20}, {266, 192, 1060}, {267, 192, 20}};
    for (const auto& [left, pixelsPerInch, to] : cases) {
        EXPECT_EQ(DodgeTo({left, 10, left + 200, 110}, {1280, 1024}, pixelsPerInch), to) << left;
    }
}

}  // namespace
