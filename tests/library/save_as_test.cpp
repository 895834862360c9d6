#include "library/save_as.h"

#include "dictionary/dictionary.h"
#include "library/job_shortcut.h"
#include "library/library_stage.h"
#include "platform/text.h"

namespace {

class SaveAs : public LibraryStage {
protected:
    SaveAs() {
        recorded.SpeedPercent = 7;
        recorded.CapsLockState = 1;
        recorded.Strings = {"left over"};
        recorded.StartProgram = {"C:\\paint.exe", "a.bmp", 1};
        recorded.Events.resize(3);
        OpenSaveAs(false);
        ChooseShortcutOnDesktop(false);
    }

    Job recorded;
};

TEST_F(SaveAs, WritesANewJobWithTheOptionsOfANewJob) {
    EXPECT_EQ(SaveJobAs("My job", "What it does", recorded), SaveAsOutcome::Saved);
    Job saved;
    ReadJob(PathOf("My job"), saved);
    EXPECT_EQ(saved.Description, "What it does");
    EXPECT_EQ(saved.SpeedPercent, 100);
    EXPECT_EQ(saved.RepeatCount, 1);
    EXPECT_EQ(saved.CapsLockState, 1);
    EXPECT_EQ(saved.StartProgram.ProgramPath, "C:\\paint.exe");
    EXPECT_EQ(saved.Events.size(), 3U);
    EXPECT_THAT(saved.Strings, IsEmpty());
    EXPECT_EQ(Rows().size(), 1U);
    EXPECT_FALSE(simulated::FileBytes(LinkOf("My job")));
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
}

TEST_F(SaveAs, AsksBeforeItOverwrites) {
    PutJob("old", 5000);
    const auto before = simulated::FileBytes(PathOf("old"));
    simulated::AnswerNextBox({.yes = false});
    EXPECT_EQ(SaveJobAs("OLD", "", recorded), SaveAsOutcome::KeptOpen);
    EXPECT_EQ(LastBox(), "Overwrite?|Job \"OLD\" already exists. Overwrite?");
    EXPECT_EQ(simulated::FileBytes(PathOf("old")), before);
    simulated::AnswerNextBox({.yes = true});
    EXPECT_EQ(SaveJobAs("OLD", "", recorded), SaveAsOutcome::Saved);
    EXPECT_NE(simulated::FileBytes(PathOf("old")), before);

    // A job that cannot be opened just now is not a name that is free.
    simulated::LockFileAgainstReaders(PathOf("old"), platform::TickCount() + 100);
    simulated::AnswerNextBox({.yes = false});
    EXPECT_EQ(SaveJobAs("old", "", recorded), SaveAsOutcome::KeptOpen);
    SetLanguage(LanguageSpanish);
    SaveJobAs("old", "", recorded);
    EXPECT_EQ(platform::ToUtf8(LastBox()), "¿Sobrescribir?|La tarea \"old\" ya existe. ¿Sobrescribir?");
}

TEST_F(SaveAs, RefusesNamesThatNoFileCanHave) {
    const std::string plain = "Invalid file name. Please enter a valid file name";
    for (const std::string name : {"", "   ", "a?b", "a*", "x:y", "<", "a|b", "say \"hi\"", "a/b"}) {
        EXPECT_EQ(SaveJobAs(name, "", recorded), SaveAsOutcome::NameWrong) << name;
        EXPECT_THAT(LastBox(), EndsWith("|" + plain)) << name;
        EXPECT_EQ(simulated::ShownBoxes().back().icon, platform::BoxIcon::Error);
    }
    const std::pair<std::string, const char*> explained[] = {
        {"CON", "one of its devices"},      {"nul.old", "one of its devices"},  {"Aux ", "one of its devices"},
        {"com1", "one of its devices"},     {"LPT9.x.y", "one of its devices"}, {"com\xB2", "one of its devices"},
        {"job.", "end with a dot"},         {"job ", "end with a dot"},         {"..", "end with a dot"},
        {"a\tb", "tabs, line breaks"},      {"sub\\job", "any of these"},       {"..\\job", "any of these"},
        {std::string(260, 'x'), "too long"}};
    for (const auto& [name, why] : explained) {
        EXPECT_EQ(SaveJobAs(name, "", recorded), SaveAsOutcome::NameWrong) << name;
        EXPECT_THAT(LastBox(), HasSubstr("|" + plain + ".\r\n")) << name;
        EXPECT_THAT(LastBox(), HasSubstr(why)) << name;
    }
    EXPECT_THAT(simulated::AllFiles(), IsEmpty());
}

TEST_F(SaveAs, TakesNamesThatOnlyLookOdd) {
    for (const std::string name : {"com", "com0", "com10", "console", "my.con", " lead", "a.b", "100%", "\xE4\xF6"}) {
        EXPECT_EQ(SaveJobAs(name, "", recorded), SaveAsOutcome::Saved) << name;
        EXPECT_TRUE(simulated::FileBytes(PathOf(name))) << name;
    }
    const std::string longest(259 - PathOf("").size(), 'x');
    EXPECT_EQ(SaveJobAs(longest, "", recorded), SaveAsOutcome::Saved);
    EXPECT_EQ(SaveJobAs(longest + "x", "", recorded), SaveAsOutcome::NameWrong);
}

TEST_F(SaveAs, KeepsTheRecordingWhenTheDiskIsFull) {
    simulated::SetFreeSpace(100);
    EXPECT_THROW(SaveJobAs("job", "", recorded), RuntimeFailure);
    simulated::SetFreeSpace(1'000'000);
    EXPECT_EQ(SaveJobAs("job", "", recorded), SaveAsOutcome::Saved);
}

TEST_F(SaveAs, PutsAShortcutOnTheDesktopIfTicked) {
    settings.create_shortcut_on_desktop = 17;
    EXPECT_TRUE(OpenSaveAs(true).create_shortcut_on_desktop);
    EXPECT_TRUE(OpenSaveAs(true).please_wait);
    EXPECT_EQ(settings.create_shortcut_on_desktop, 1);
    SaveJobAs("job", "", recorded);
    const std::string link = simulated::FileBytes(LinkOf("job")).value_or("");
    EXPECT_THAT(link, HasSubstr("C:\\jobs\\job.tsj"));
    EXPECT_THAT(link, HasSubstr("Shortcut to Tessarine job 'job'"));
    SaveJobAs("told", "What it does", recorded);
    EXPECT_THAT(simulated::FileBytes(LinkOf("told")).value_or(""), HasSubstr("What it does"));
    ChooseShortcutOnDesktop(false);
    EXPECT_FALSE(OpenSaveAs(false).create_shortcut_on_desktop);
}

TEST_F(SaveAs, AsksBeforeItReplacesAShortcutOfTheUsersOwn) {
    ChooseShortcutOnDesktop(true);
    const std::string link = folders.DesktopFolder + "\\job.lnk";
    simulated::PutFile(link, "C:\\elsewhere.exe");
    simulated::AnswerNextBox({.yes = false});
    CreateJobShortcut(PathOf("job"), folders.DesktopFolder, "job");
    EXPECT_EQ(simulated::FileBytes(link), "C:\\elsewhere.exe");
    EXPECT_EQ(simulated::ShownBoxes().back().text, "File \"" + link + "\" already exists. Overwrite?");
    simulated::AnswerNextBox({.yes = true});
    for (int again = 0; again < 2; ++again) CreateJobShortcut(PathOf("job"), folders.DesktopFolder, "job");
    EXPECT_THAT(simulated::FileBytes(link).value_or(""), HasSubstr(PathOf("job")));
    EXPECT_EQ(simulated::ShownBoxes().size(), 2U) << "its own is replaced without a word";
    simulated::LockFileAgainstReaders(link);
    CreateJobShortcut(PathOf("job"), folders.DesktopFolder, "job");
    EXPECT_EQ(simulated::ShownBoxes().size(), 3U) << "what cannot be read is not known to be its own";
}

TEST_F(SaveAs, SaysNothingOfAShortcutThatCannotBeMade) {
    ChooseShortcutOnDesktop(true);
    simulated::MakeReadOnly(folders.DesktopFolder);
    EXPECT_EQ(SaveJobAs("job", "", recorded), SaveAsOutcome::Saved);
    CreateJobShortcut("", folders.DesktopFolder, "none");
    CreateJobShortcut(PathOf("job"), "", "none");
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
    EXPECT_EQ(simulated::AllFiles().size(), 1U);
}

TEST_F(SaveAs, EscAsksAboutARecordingAndOffersAWayBack) {
    EXPECT_EQ(LeaveSaveAs(false), SaveAsLeave::Close);
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
    simulated::AnswerNextBox({.yes = true});
    EXPECT_EQ(LeaveSaveAs(true), SaveAsLeave::Save);
    simulated::AnswerNextBox({.yes = false});
    EXPECT_EQ(LeaveSaveAs(true), SaveAsLeave::Close);
    simulated::AnswerNextBox({.yes = false, .cancel = true});
    EXPECT_EQ(LeaveSaveAs(true), SaveAsLeave::Stay);
}

// Windows has ended in the middle of a recording.
TEST_F(SaveAs, ARecoveredRecordingStandsInTheListAtTheNextStart) {
    simulated::SetLocalTime({2004, 2, 9, 7, 5, 3});
    EXPECT_EQ(SaveRecoveredRecording(recorded), "Recovered 2004-02-09 07.05.03");
    EXPECT_EQ(SaveRecoveredRecording(recorded), "Recovered 2004-02-09 07.05.03 (2)") << "nothing is overwritten";
    EXPECT_EQ(Rows().size(), 0U) << "nobody is there to see it";
    job_library::FillJobList();
    EXPECT_EQ(Rows().size(), 2U);
    Job saved;
    ReadJob(PathOf("Recovered 2004-02-09 07.05.03"), saved);
    EXPECT_EQ(saved.SpeedPercent, 100);
    EXPECT_EQ(saved.Events.size(), 3U);
    EXPECT_EQ(saved.StartProgram.ProgramPath, "C:\\paint.exe");
    simulated::LosePath(folders.DataFolder);
    EXPECT_EQ(SaveRecoveredRecording(recorded), "");
    EXPECT_THAT(simulated::ShownBoxes(), IsEmpty());
}

}  // namespace
