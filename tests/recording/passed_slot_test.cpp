// A press on one of our own windows whose slot cannot be given back, since another hook call has taken the next one
// meanwhile. A CaptureWindow stands in here that finds only windows of ours, and pumps before it says so.
#include "identity/window_identity.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "settings/settings.h"
#include "support/story.h"

WindowArrays windowArrays;
OwnWindows ownWindows;

void ResetWindowArrays(const std::vector<WindowSignature>&, const std::vector<WindowChain>&) {}

bool IsForOwnBox(bool) {
    return false;
}

int CaptureWindow(JobEvent&, bool) {
    platform::Pump();
    return 0;
}

namespace {

class PassedSlot : public testing::Test {
protected:
    PassedSlot() {
        settings.Capture_Mouse_Moves = 1;
        StartRecording();
    }

    static void Press() { MouseHookProc({0x201, {30, 40}, 0, 0, 0, 0}); }
};

TEST_F(PassedSlot, IsGivenBackWhileItIsTheNewest) {
    Press();
    EXPECT_EQ(recordingSession.eventCount, -1);
}

TEST_F(PassedSlot, BecomesAPlainMoveBehindWhichTheOtherStays) {
    simulated::UserReleases(simulated::Button::Right);
    Press();
    ASSERT_EQ(recordingSession.eventCount, 1);
    const JobEvent& press = recordingSession.recordingEvents[0];
    EXPECT_EQ(press.dwFlags(), 0x8001);
    EXPECT_EQ(press.dx(), 30);
    EXPECT_EQ(press.WindowChainIndex, NoWindowMarker);
    EXPECT_EQ(recordingSession.recordingEvents[1].dwFlags(), 0x8010);
    Press();
    Press();
    EXPECT_EQ(recordingSession.eventCount, 1) << "and its click is no half of a double click";
}

}  // namespace
