// tsj run, on the simulated desktop: codes, and what the reports tell.
#include <nlohmann/json.hpp>

#include "jobs/job_file.h"
#include "replay/replay_stage.h"
#include "replay/run_stop.h"
#include "simulated/files.h"
#include "tsj/tool_stage.h"

using nlohmann::json;
using simulated::TextOf;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string PlayedPath = "C:\\jobs\\a.tsj";

class TsjRunTest : public ReplayStage, public ToolStage {
protected:
    TsjRunTest() { simulated::PutFolder("C:\\jobs"); }

    int Run(std::vector<std::string> options = {}) {
        WriteJob(PlayedPath, job.Built());
        options.insert(options.begin(),
                       {"run", PlayedPath, "--report", "C:\\jobs\\r.json", "--junit", "C:\\jobs\\r.xml"});
        const int code = Tsj(options);
        if (code == 64) return code;
        report = json::parse(*simulated::FileBytes("C:\\jobs\\r.json"));
        EXPECT_EQ(report["exitCode"], code);
        return code;
    }

    json report;
};

TEST_F(TsjRunTest, TellsOfEachRowWhenItWasDueAndSent) {
    InEdit().Wait(1000).Click(Left, 300, 300).Wait(500).Type("ab").Wait(100).TextRow("cd");
    ASSERT_EQ(Run({"--speed", "200", "--repeat", "2"}), 0) << err;
    EXPECT_EQ(TextOf(edit), "abcdabcd");
    EXPECT_THAT(out, HasSubstr("OK   1. MOUSE: Left click at: Untitled - Notepad\n"));
    EXPECT_EQ(report["outcome"], "success");
    EXPECT_EQ(report["passes"], 2);
    ASSERT_EQ(report["rows"].size(), 6) << report.dump();
    const json& click = report["rows"][0];
    const double due = job.Built().Events[0].time() / 2.0;
    EXPECT_DOUBLE_EQ(click["dueMs"], due);
    EXPECT_NEAR(click["sentMs"], due + click["latenessMs"].get<double>(), 0.01);
    EXPECT_EQ(click["searches"], 1);
    EXPECT_EQ(click["verdict"], "ok");
    EXPECT_EQ(report["machine"]["monitors"][0]["scalingPercent"], 100);
    EXPECT_THAT(*simulated::FileBytes("C:\\jobs\\r.xml"), HasSubstr("failures=\"0\" errors=\"0\" skipped=\"0\""));
}

TEST_F(TsjRunTest, AFailureHasItsReasonAndAPicture) {
    InEdit().Click(Left, 300, 300);
    InLostWindow().IfNoWindow(StopExecuting, 1).Click(Left, 1, 1);
    InEdit().Type("never");
    simulated::PutFolder("C:\\jobs\\pictures");
    EXPECT_EQ(Run({"--picture", "C:\\jobs\\nowhere"}), 64);
    EXPECT_THAT(simulated::Journal(), IsEmpty());
    ASSERT_EQ(Run({"--picture", "C:\\jobs\\pictures"}), 1);
    EXPECT_EQ(report["rows"][0]["verdict"], "ok");
    const json& lost = report["rows"][1];
    EXPECT_EQ(lost["verdict"], "failed");
    EXPECT_THAT(lost["reason"].get<std::string>(), HasSubstr("'Nowhere'"));
    EXPECT_GE(lost["searchMs"], 1000);
    EXPECT_GT(lost["searchRounds"], 2);
    EXPECT_TRUE(lost["sentMs"].is_null());
    EXPECT_EQ(report["rows"][2]["verdict"], "not reached");
    EXPECT_EQ(report["reason"], lost["reason"]);
    EXPECT_THAT(*simulated::FileBytes("C:\\jobs\\pictures/" + lost["picture"].get<std::string>()),
                testing::StartsWith("\x89PNG"));
    const std::string xml = *simulated::FileBytes("C:\\jobs\\r.xml");
    EXPECT_THAT(xml, HasSubstr("failures=\"1\" errors=\"1\" skipped=\"1\""));
    EXPECT_THAT(xml, HasSubstr("<failure message=\"Cannot find window: 'Nowhere'\"/>"));
}

TEST_F(TsjRunTest, ARowThatIsSkippedFailsAndTheRunGoesOn) {
    InLostWindow().IfNoWindow(SkipAction, 0).Click(Left, 1, 1);
    InEdit().IfNoWindow(StopExecuting, 1).TextRow("on");
    EXPECT_EQ(Run(), 0);
    EXPECT_EQ(TextOf(edit), "on");
    EXPECT_EQ(report["rows"][0]["verdict"], "failed");
    EXPECT_EQ(report["rows"][1]["verdict"], "ok");
}

TEST_F(TsjRunTest, TimeIsUpForARunThatNeverWaitsToo) {
    NewJob(SafetyLow, MaximumSpeed);
    for (int i = 0; i < 500; ++i) InEdit().Click(Left, 300, 300);
    EXPECT_EQ(Run({"--timeout", "3"}), 6);
    EXPECT_LT(platform::TickCount(), 3500);
}

TEST_F(TsjRunTest, EachEndHasItsCode) {
    InEdit().Click(Left, 300, 300).KeyDown('A').Wait(5000).KeyUp('A');
    simulated::LetAnotherProgramPlay();
    EXPECT_EQ(Run(), 4);
    EXPECT_EQ(Run({"--wait", "--timeout", "3"}), 6);
    EXPECT_THAT(simulated::Journal(), IsEmpty());
    simulated::At(platform::TickCount() + 2000, [] { simulated::LetAnotherProgramPlay(false); });
    EXPECT_EQ(Run({"--wait", "--timeout", "5"}), 6) << "the wait counts";
    ASSERT_THAT(Keys(), testing::SizeIs(2)) << report.dump();
    EXPECT_EQ(Keys().back().record.KeyState(), platform::KeyUp) << "what was held is released";
    EXPECT_THAT(err, HasSubstr("timed out"));
    simulated::UserHoldsEscapeFrom(platform::TickCount() + 2000, platform::TickCount() + 2100);
    EXPECT_EQ(Run(), 2);
    simulated::LockDesktop();
    platform::Sleep(100);
    EXPECT_EQ(Run(), 5);
    simulated::LockDesktop(false);
    platform::Sleep(100);
    EXPECT_EQ(Tsj({"run", "C:\\jobs\\none.tsj"}), 3);
    NewJob();
    EXPECT_EQ(Run(), 3) << "an empty one";
    InEdit().Click(Left, 300, 300);
    job.Built().Events[0].WindowChainIndex = 7;
    EXPECT_EQ(Run(), 3);
}

TEST_F(TsjRunTest, WithoutItsProgramNothingIsPlayed) {
    job.Header().StartProgram.ProgramPath = "C:\\none.exe";
    InEdit().Type("never");
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(simulated::Journal(), IsEmpty());
    EXPECT_THAT(report["reason"].get<std::string>(), HasSubstr("C:\\none.exe"));
}

TEST_F(TsjRunTest, AReportThatCannotBeWrittenIsNoSuccess) {
    InEdit().Type("a");
    WriteJob(PlayedPath, job.Built());
    EXPECT_EQ(Tsj({"run", PlayedPath, "--junit", "C:\\none\\r.xml"}), 64) << "told before anything is sent";
    EXPECT_THAT(err, HasSubstr("none"));
    EXPECT_EQ(TextOf(edit), "");
    simulated::PutFolder("C:\\jobs\\r.json");
    EXPECT_EQ(Tsj({"run", PlayedPath, "--report", "C:\\jobs\\r.json"}), 1);
    EXPECT_THAT(err, HasSubstr("r.json"));
    EXPECT_EQ(TextOf(edit), "a");
}

TEST_F(TsjRunTest, AnInterruptEndsItLikeEscape) {
    InEdit().Click(Left, 300, 300).KeyDown('A').Wait(5000).KeyUp('A');
    simulated::At(platform::TickCount() + 2000, InterruptRun);
    EXPECT_EQ(Run(), 2);
    EXPECT_EQ(Keys().back().record.KeyState(), platform::KeyUp);
}

TEST_F(TsjRunTest, AReportOnStandardOutputHasItToItself) {
    InEdit().Type("a");
    WriteJob(PlayedPath, job.Built());
    ASSERT_EQ(Tsj({"run", PlayedPath, "--report", "-"}), 0);
    EXPECT_EQ(json::parse(out)["outcome"], "success");
    EXPECT_THAT(err, HasSubstr("OK   1. KEYSTROKES: a"));
}

}  // namespace
