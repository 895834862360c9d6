// A made program, from its file to the window that its job is for.
#include "runner/run_made.h"

#include "dictionary/dictionary.h"
#include "jobs/job_file.h"
#include "replay/replay_stage.h"
#include "replay/run_job.h"
#include "storage/archive.h"
#include "support/least_program.h"

using simulated::TextOf;

namespace {

const std::string MadePath = "C:\\Colleague\\Morning.exe";
const std::string JobPath = "C:\\Colleague\\Morning.tsj";

class RunMadeTest : public ReplayStage {
protected:
    RunMadeTest() { simulated::PutFolder("C:\\Colleague"); }

    void Make(int language = LanguageEnglish) {
        WriteJob(JobPath, job.Built());
        bytes = LeastProgram() + std::string{static_cast<char>(language), '\0'} + *simulated::FileBytes(JobPath);
        simulated::PutFile(MadePath, bytes);
    }

    // With `value` in the four bytes at this place of the job.
    ExitCode RunWith(std::size_t place, std::uint32_t value) {
        std::string damaged = bytes;
        little_endian::Store(damaged.data() + LeastProgram().size() + 2 + place, value);
        simulated::PutFile(MadePath, damaged);
        return RunMade(MadePath);
    }

    std::string bytes;
};

TEST_F(RunMadeTest, PlaysItsJobInItsLanguageAndLeavesNothing) {
    InEdit().Click(Left, 300, 300).Type("hello");
    Make(LanguageGerman);
    simulated::LosePath(JobPath);
    EXPECT_EQ(RunMade(MadePath), ExitCode::Success);
    EXPECT_EQ(TextOf(edit), "hello");
    EXPECT_EQ(statusViewStandIn.jobName, "Morning");
    EXPECT_TRUE(statusViewStandIn.executing.visible) << "whatever the options of the program were";
    EXPECT_EQ(GetLanguage(), LanguageGerman);
    EXPECT_EQ(StoredLanguage(), std::nullopt);
    EXPECT_EQ(simulated::GuardStarts(), 1);
    EXPECT_TRUE(simulated::FileBytes(MadePath) == bytes);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(RunMadeTest, EachEndHasItsCode) {
    InEdit().Click(Left, 300, 300).Wait(5000).Type("hello");
    Make();
    simulated::LetAnotherProgramPlay();
    EXPECT_EQ(RunMade(MadePath), ExitCode::Busy);
    simulated::LetAnotherProgramPlay(false);
    simulated::LockDesktop();
    EXPECT_EQ(RunMade(MadePath), ExitCode::DesktopUnreachable);
    simulated::LockDesktop(false);
    EXPECT_THAT(Boxes(), IsEmpty()) << "a box would take the keys of the other run, or be seen by nobody";
    EXPECT_THAT(simulated::Journal(), IsEmpty());

    platform::Sleep(20);  // the answer of the desktop holds for a while
    simulated::UserHoldsEscapeFrom(platform::TickCount() + 2000, platform::TickCount() + 2100);
    EXPECT_EQ(RunMade(MadePath), ExitCode::Cancelled);
    platform::Sleep(200);
    EXPECT_EQ(RunMade(MadePath), ExitCode::Success);

    NewJob();
    InLostWindow().IfNoWindow(StopExecuting, 1).Click(Left, 1, 1);
    Make();
    EXPECT_EQ(RunMade(MadePath), ExitCode::Failed);
    EXPECT_THAT(statusViewStandIn.list, Contains(HasSubstr("Cannot find window")));
}

TEST_F(RunMadeTest, WhatIsLockedOnTheWayIsNotReachable) {
    InEdit().Type("a").Wait(5000).Type("b");
    Make();
    simulated::At(platform::TickCount() + 2000, [] { simulated::LockDesktop(); });
    EXPECT_EQ(RunMade(MadePath), ExitCode::DesktopUnreachable);
    EXPECT_EQ(TextOf(edit), "a");
}

TEST_F(RunMadeTest, ADamagedOneSaysSoAndSendsNothing) {
    InEdit().Click(Left, 300, 300).Type("hello").TextRow("abc");
    Make();
    constexpr std::size_t events = 2134, strings = 2138, eventsAt = 2142 + 2 + 3, chainOfFirst = 28;
    const std::uint32_t count = static_cast<std::uint32_t>(job.Built().Events.size());
    std::size_t boxes = 0;
    const auto expectRefusal = [&](ExitCode code, const std::string& what) {
        EXPECT_EQ(code, ExitCode::NothingToPlay) << what;
        EXPECT_THAT(simulated::Journal(), IsEmpty()) << what;
        EXPECT_THAT(Boxes(), SizeIs(++boxes)) << what;
    };
    for (const std::uint32_t value : {0U, 299U, 307U, 0x80000000U}) expectRefusal(RunWith(0, value), "version");
    for (const std::uint32_t value : {0U, count + 5000, 0x7FFFFFFFU}) expectRefusal(RunWith(events, value), "events");
    for (const std::uint32_t value : {2U, 5000U, 0x7FFFFFFFU}) expectRefusal(RunWith(strings, value), "strings");
    expectRefusal(RunWith(2110, 0), "speed");
    expectRefusal(RunWith(eventsAt + chainOfFirst, 77), "window of the click");
    for (std::size_t length = 0; length < bytes.size(); length += length < 3000 ? 7 : 101) {
        simulated::PutFile(MadePath, bytes.substr(0, length));
        expectRefusal(RunMade(MadePath), "cut at " + std::to_string(length));
    }
    job = JobBuilder();
    Make(LanguageFrench);
    expectRefusal(RunMade(MadePath), "empty");
    EXPECT_THAT(LastBox(), HasSubstr(Translate("There is nothing to play: the job is empty.")));
}

}  // namespace
