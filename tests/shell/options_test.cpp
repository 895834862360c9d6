// What the Options and About pages do.
#include "shell/options.h"

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "library/job_library.h"
#include "mainwindow/job_page.h"
#include "platform/registry.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "settings/folders.h"
#include "shell/about.h"
#include "shell/help.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

std::vector<std::string> Started() {
    std::vector<std::string> lines;
    for (const simulated::StartedProgram& program : simulated::StartedPrograms()) lines.push_back(program.commandLine);
    return lines;
}

class Options : public testing::Test {
protected:
    Options() {
        folders.DataFolder = "C:\\My Jobs, old";
        folders.ProgramFolder = "C:\\Program Files\\Tessarine";
        simulated::PutFolder(folders.DataFolder);
        simulated::PutFolder(folders.ProgramFolder);
        LoadJobPage();
        for (const char* name : {"a", "b"}) {
            WriteJob(folders.DataFolder + "\\" + name + ".tsj", Job());
        }
        job_library::FillJobList();
        job_library::SelectJob(folders.DataFolder + "\\b.tsj");
    }

    static std::optional<std::string> Registered() {
        return platform::ReadRegistry("Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Tessarine");
    }

    static std::string SelectedJob() { return jobLibrary.lista_jobs.List(jobLibrary.lista_jobs.listindex()); }
};

TEST_F(Options, StartWithWindowsIsAnEntryOfTheRegistry) {
    StartWithWindows(false);
    EXPECT_THAT(Boxes(), IsEmpty()) << "nothing was there";
    StartWithWindows(true);
    EXPECT_EQ(Registered(), "\"C:\\Program Files\\Tessarine\\tessarine.exe\" -startup");
    EXPECT_TRUE(job_library::StartsWithWindows());
    simulated::RefuseRegistry();
    StartWithWindows(false);
    EXPECT_EQ(LastBox(), "Access denied|You do not have privillegies to modify startup section in the registry");
    EXPECT_TRUE(job_library::StartsWithWindows()) << "the tick comes back";
    StartWithWindows(true);
    EXPECT_EQ(LastBox(), "Access denied|Error writing to registry");
    simulated::RefuseRegistry(false);
    StartWithWindows(false);
    EXPECT_EQ(Registered(), std::nullopt);
    EXPECT_THAT(Boxes(), SizeIs(2));
}

TEST_F(Options, OpenFolderWorksForEveryFolderAndTellsWhenThereIsNone) {
    OpenDataFolder();
    EXPECT_THAT(Started(), ElementsAre("explorer.exe \"C:\\My Jobs, old\""));
    simulated::LosePath(folders.DataFolder);
    OpenDataFolder();
    EXPECT_THAT(Started(), SizeIs(1)) << "the explorer would show another folder";
    EXPECT_EQ(LastBox(), "File access error|The folder 'C:\\My Jobs, old' cannot be opened.");
}

TEST_F(Options, ALanguageIsInForceAndStoredAtOnce) {
    EXPECT_EQ(LanguagePlace(), 0);
    ChooseLanguage(3);
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "Language"), "fr");
    EXPECT_EQ(LanguagePlace(), 3);
    EXPECT_THAT(jobLibrary.lista_jobs.Row(0).Text2, StartsWith("Dur\xE9"
                                                               "e"));
    EXPECT_EQ(SelectedJob(), "b");
    EXPECT_THAT(shellStandIn.calls, ElementsAre("PodesiRjecnik"));
    ChooseLanguage(3);
    EXPECT_THAT(shellStandIn.calls, SizeIs(1)) << "it is that already";
}

// A list that is filled anew would take them away without a word.
TEST_F(Options, ChangesOnTheJobPageAreAskedAboutBeforeTheListIsFilledAnew) {
    SetSpeed(200);
    jobPage.button_save_changes = true;
    simulated::AnswerNextBox({.yes = true});
    ChooseLanguage(1);
    EXPECT_EQ(CheckJobHeader(folders.DataFolder + "\\b.tsj").speed, 200);
    EXPECT_EQ(SelectedJob(), "b");

    SetSpeed(300);
    jobPage.button_save_changes = true;
    simulated::MakeReadOnly(folders.DataFolder);
    simulated::AnswerNextBox({.yes = true});
    EXPECT_THROW(ChooseLanguage(0), RuntimeFailure);
    EXPECT_EQ(LanguagePlace(), 1);
    EXPECT_TRUE(jobPage.button_save_changes);

    simulated::AnswerNextBox({.yes = true});
    EXPECT_THROW(ChangeFolder(), RuntimeFailure);
    EXPECT_THAT(simulated::BrowsedFolders(), IsEmpty());
    simulated::AnswerNextBox({.yes = false});
    ChangeFolder();
    EXPECT_THAT(simulated::BrowsedFolders(), SizeIs(1));
}

TEST_F(Options, HelpIsTheFileBesideTheProgram) {
    simulated::AnswerNextBox({.whileOpen = [] { OpenHelp("speed.htm"); }});  // F1 in the box
    OpenHelp("speed.htm");
    EXPECT_THAT(Boxes(), SizeIs(1));
    EXPECT_EQ(LastBox(),
              "Help|The help is not installed: there is no file 'C:\\Program Files\\Tessarine\\Tessarine "
              "Help.chm'.");
    simulated::PutFile(folders.ProgramFolder + "\\Tessarine Help.chm", "help");
    OpenHelp("speed.htm");
    OpenHelp("");
    const std::string file = "C:\\Program Files\\Tessarine\\Tessarine Help.chm";
    EXPECT_THAT(simulated::ShownHelp(), ElementsAre(file + "|speed.htm", file + "|"));
    simulated::RefuseStarts();
    OpenHelp("");
    EXPECT_THAT(LastBox(), EndsWith("Help.chm' cannot be opened."));
}

TEST_F(Options, HelpComesNeitherIntoARunNorIntoARecording) {
    simulated::PutFile(folders.ProgramFolder + "\\Tessarine Help.chm", "help");
    runState.ReplayRunning = true;
    OpenHelp("");
    runState.ReplayRunning = false;
    for (const RecordingState state : {RecordingState::Recording, RecordingState::Paused}) {
        recordingSession.state = state;
        OpenHelp("");
    }
    EXPECT_THAT(simulated::ShownHelp(), IsEmpty());
    recordingSession.state = RecordingState::Stopping;
    OpenHelp("save_as.htm");
    EXPECT_THAT(simulated::ShownHelp(), SizeIs(1)) << "the Save As form asks";
}

TEST_F(Options, WebPagesAreThoseOfTheUpdateServer) {
    EXPECT_FALSE(HasWebPages());
    platform::WriteRegistry("Software\\Tessarine", "UpdateServer", "https://example.org");
    EXPECT_TRUE(HasWebPages());
    OpenHomepage();
    OpenSupport();
    EXPECT_THAT(Started(), ElementsAre("https://example.org/", "https://example.org/customers/"));
    simulated::RefuseStarts();
    OpenSupport();
    EXPECT_EQ(LastBox(), "About Tessarine|The web page 'https://example.org/customers/' cannot be opened.");
}

}  // namespace
