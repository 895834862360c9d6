// What command lines ask for, and the bytes in which one is handed over.
#include "shell/command_line.h"

#include "editor/edit_job.h"
#include "jobs/job_file.h"
#include "mainwindow/form_visible.h"
#include "platform/text.h"
#include "shell/copy_data.h"
#include "support/shell_stand_in.h"
#include "support/story.h"

namespace {

const std::string JobPath = "C:\\Jobs\\morning report.tsj";

class CommandLine : public testing::Test {
protected:
    CommandLine() {
        simulated::PutFolder("C:\\Jobs");
        WriteJob(JobPath, {});
    }

    // True when the process lived on.
    static bool Handle(const std::string& commandLine, bool fromOtherInstance = false) {
        try {
            HandleCommandParameter(commandLine, fromOtherInstance);
            return true;
        } catch (const ProcessEnded&) {
            return false;
        }
    }
};

TEST_F(CommandLine, TheFirstCharactersDecide) {
    const std::string run = "RunJob " + JobPath;
    // The command line, the call that it leads to (none: nothing at all), and what the box says is missing.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"", "Show", ""},
        {"   ", "Show", ""},
        {"-run " + JobPath, run, ""},
        {"  -RuN     " + JobPath + "   ", run, ""},
        {"-run" + JobPath, run, ""},
        {"-edit " + JobPath, "Show", ""},
        {"-EDIT " + JobPath, "Show", ""},
        {"edit " + JobPath, "", ""},
        {"run " + JobPath, "", ""},
        {JobPath, "", ""},
        {"-", "", ""},
        {"-ru", "", ""},
        {"-runner x", "EndProcess", "ner x"},
        {"-editor", "EndProcess", "or"},
        {"-run \"" + JobPath + "\"", "EndProcess", "\"" + JobPath + "\""},
        {"-run", "EndProcess", ""},
        {"-run C:\\Jobs", "EndProcess", "C:\\Jobs"},
    };
    for (const auto& [commandLine, firstCall, boxText] : cases) {
        SCOPED_TRACE("command line: '" + commandLine + "'");
        shellStandIn = {};
        formVisibility = {};
        shellStandIn.runResult = 0;
        const std::size_t boxesBefore = Boxes().size();
        const int repliesBefore = simulated::RepliesToSenders();
        const bool ends = firstCall == "EndProcess";
        EXPECT_EQ(Handle(commandLine, true), !ends);
        EXPECT_EQ(EditorIsOpen(), platform::LowerCase(commandLine).starts_with("-edit "));
        EditorHasClosed();
        EXPECT_TRUE(firstCall.empty() ? shellStandIn.calls.empty() : WasCalled(firstCall));
        ASSERT_EQ(Boxes().size(), boxesBefore + (ends ? 1 : 0));
        EXPECT_EQ(simulated::RepliesToSenders(), repliesBefore + (ends ? 1 : 0)) << "the command was not lost";
        if (!ends) continue;
        EXPECT_EQ(LastBox(), "File access error|File does not exist:\r\n" + boxText);
        EXPECT_FALSE(WasCalled("Show"));
    }
}

TEST_F(CommandLine, ARunIsHiddenAndItsEndDependsOnWhoAskedForIt) {
    const std::tuple<bool, bool, std::int32_t, bool, bool> cases[] = {
        {false, false, 1, false, false}, {false, false, 3, false, false}, {false, true, 1, false, false},
        {false, false, 0, true, false},  {false, true, -2, true, false},  {true, true, 1, true, true},
        {true, false, 1, true, false},   {true, true, 0, true, false},    {true, true, -10, true, false},
    };
    for (const auto& [fromOtherInstance, wasVisible, result, livesOn, visibleAfterwards] : cases) {
        SCOPED_TRACE(testing::Message() << "from other " << fromOtherInstance << ", visible " << wasVisible
                                        << ", result " << result);
        shellStandIn = {};
        formVisibility = {};
        FormVisible(wasVisible, false);
        bool visibleDuringRun = true;
        shellStandIn.runResult = result;
        shellStandIn.duringRun = [&] { visibleDuringRun = shellStandIn.visible; };
        EXPECT_EQ(Handle("-run " + JobPath, fromOtherInstance), livesOn);
        EXPECT_FALSE(visibleDuringRun);
        EXPECT_EQ(shellStandIn.visible, visibleAfterwards);
    }
}

// What another program has in its hands is not gone: nobody is told so, and the program does not end for it.
TEST_F(CommandLine, AJobThatIsHeldIsToldAndKeepsTheProgramAlive) {
    simulated::LockFileAgainstReaders(JobPath);
    for (const std::string word : {"-run ", "-edit "}) {
        EXPECT_TRUE(Handle(word + JobPath));
        EXPECT_EQ(LastBox(), "File access error|The file '" + JobPath +
                                 "' is in use by another program. Please try again in a moment.");
    }
    EXPECT_TRUE(shellStandIn.calls.empty());
    simulated::LockFileAgainstReaders(JobPath, platform::TickCount() + 1000);
    EXPECT_TRUE(Handle("-run " + JobPath, true));
    EXPECT_TRUE(WasCalled("RunJob " + JobPath)) << "held for a moment only";
}

TEST(ComputerStart, IsTheWordAnywhere) {
    for (const char* line : {" -startup", "-STARTUP", "startup", "-run C:\\StartUp\\a.tsj", "xstartupx"}) {
        EXPECT_TRUE(IsComputerStart(line)) << line;
    }
    for (const char* line : {"", "-start up", "-startu", "-run a.tsj"}) EXPECT_FALSE(IsComputerStart(line)) << line;
}

TEST(CopyData, CarriesACommandLineOfUpTo255Characters) {
    for (const std::size_t length : {std::size_t{1}, std::size_t{30}, CommandLineLimit}) {
        const std::string line(length, 'x');
        const std::string bytes = CopyDataOfCommand(line);
        ASSERT_EQ(bytes.size(), length + 1);
        const auto back = CommandFromCopyData(CommandLineData, static_cast<std::uint32_t>(bytes.size()), bytes.data());
        EXPECT_EQ(back, line);
    }
    EXPECT_THROW(CopyDataOfCommand(std::string(CommandLineLimit + 1, 'x')), RuntimeFailure);
}

TEST(CopyData, OfStrangersDoesNoHarm) {
    const char byte = 'x';
    EXPECT_EQ(CommandFromCopyData(7, 5, "-run "), std::nullopt);
    EXPECT_EQ(CommandFromCopyData(0, 4'000'000'000U, nullptr), std::nullopt);
    EXPECT_EQ(CommandFromCopyData(CommandLineData, 200, nullptr), std::nullopt);
    EXPECT_EQ(CommandFromCopyData(CommandLineData, 0, nullptr), "");
    EXPECT_EQ(CommandFromCopyData(CommandLineData, 1, &byte), "");
    EXPECT_EQ(CommandFromCopyData(CommandLineData, 2, &byte), "x");  // the last byte is not looked at
    EXPECT_THROW(CommandFromCopyData(CommandLineData, 257, &byte), RuntimeFailure);
    EXPECT_THROW(CommandFromCopyData(CommandLineData, 0xFFFFFFFFU, &byte), RuntimeFailure);
}

}  // namespace
