// What is recorded has no findings.
#include "findings/check_job.h"
#include "platform/files.h"
#include "recording/random_user.h"
#include "recording/recording_session.h"
#include "settings/settings.h"
#include "support/recording_view_stand_in.h"
#include "support/story.h"

namespace {

constexpr std::uint32_t Sessions = 1000;
constexpr std::uint32_t Shards =
    10;  // a desktop remembers all of its windows, so many short lives are quicker than one
constexpr int PauseBreak = 19;

// Recorded through the real hooks. The one window whose title names a file gets another.
Job Record(std::uint32_t seed) {
    Job recorded;
    settings.Display_Recording_Window = 0;
    settings.Capture_Mouse_Moves = seed % 5 == 0 ? 0 : 1;
    recordingViewStandIn.saveAs = [&recorded] { recorded = RecordedJob(); };
    BuildDesktop();
    simulated::SetCaption(platform::FindTopWindow("Editor", "a.txt - Editor"), "Untitled - Editor");
    StartRecording();
    PlayUser(seed);
    if (seed % 3 == 0) simulated::UserPressesKey('Q');  // still down when the stop key comes
    simulated::UserTaps(PauseBreak);
    platform::Pump();
    if (seed % 3 == 0) simulated::UserReleasesKey('Q');
    platform::Pump();
    recorded.Version = 300;
    return recorded;
}

class RecordedJobs : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RecordedJobs, HaveNoFindings) {
    std::size_t events = 0;
    for (std::uint32_t seed = 1 + GetParam(); seed <= Sessions; seed += Shards) {
        const Job job = Record(seed);
        events += job.Events.size();
        std::string told;
        for (const Finding& finding : CheckJob(job)) told += FindingLine(finding) + "\n";
        ASSERT_EQ(told, "") << "seed " << seed;
    }
    EXPECT_GT(events, Sessions / Shards * 20);
}

INSTANTIATE_TEST_SUITE_P(AThousand, RecordedJobs, testing::Range(0U, Shards));

}  // namespace
