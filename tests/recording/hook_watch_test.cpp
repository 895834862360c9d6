#include "recording/hook_watch.h"

#include "recording_stage.h"

namespace {

const std::string Notice = "Some actions may be missing. Please check the recording.";

class HookWatchTest : public RecordingStage {
protected:
    HookWatchTest() { settings.Display_Recording_Window = 1; }

    // Goes on acting twice a second, as somebody does who works.
    static void Act(int seconds, const simulated::Action& act) {
        for (int half = 0; half < 2 * seconds; ++half) {
            simulated::RunFor(500);
            act();
            platform::Pump();
        }
    }
    static void TypeFor(int seconds) {
        Act(seconds, [] { simulated::UserTaps('A'); });
    }
    static void MoveFor(int seconds) {
        Act(seconds, [] { simulated::UserMovesTo({++column, 300}); });
    }

    // Takes the hooks away and counts how often they are back while the user types for so long.
    static int RepairsIn(int seconds) {
        int repairs = 0;
        std::int64_t known = hookWatch.nextTry;
        for (int second = 0; second < seconds; ++second) {
            TypeFor(1);
            if (hookWatch.nextTry != known) ++repairs;
            known = hookWatch.nextTry;
        }
        return repairs;
    }

    static bool Told() { return recordingViewStandIn.info == Notice; }

    static inline int column = 400;
};

TEST_F(HookWatchTest, HooksThatWereTakenAwayComeBackAndItIsSaid) {
    Start();
    TypeFor(3);
    const std::int32_t before = Newest();
    simulated::DropHooks();
    TypeFor(2);
    EXPECT_FALSE(Told()) << "too soon to be sure";
    EXPECT_EQ(Newest(), before);
    TypeFor(3);
    EXPECT_TRUE(Told());
    EXPECT_EQ(simulated::Tray().tip, Notice + "\r\nRecording... Click here to stop recording.");
    const std::int32_t lost = Newest();
    simulated::UserTaps('B');
    simulated::UserClicks({500, 500});
    platform::Pump();
    EXPECT_EQ(Newest(), lost + 5) << "both hooks are back";
    simulated::RunFor(10'000);
    EXPECT_TRUE(Told()) << "it is not blinked away";
    const Job job = Stop();
    EXPECT_EQ(job.Events.size(), static_cast<std::size_t>(lost) + 6);
    EXPECT_EQ(job.Events.back().time(), 8000) << "the time base is untouched";
    EXPECT_EQ(simulated::Tray().tip, "Tessarine 3.0.6");
    Start();
    simulated::RunFor(5000);
    EXPECT_FALSE(Told());
    EXPECT_EQ(simulated::Tray().tip, "Recording... Click here to stop recording.");
}

TEST_F(HookWatchTest, ALivingRecordingRaisesNoAlarm) {
    settings.Capture_Mouse_Moves = 0;
    Start();
    MoveFor(5);
    EXPECT_EQ(Newest(), -1) << "the moves are not recorded, and heard all the same";
    simulated::RunFor(60'000);  // nobody there
    TypeFor(1);
    simulated::RunFor(60'000);
    Command2_MouseDown();  // paused
    TypeFor(5);
    EXPECT_FALSE(Told());
    EXPECT_FALSE(hookWatch.told);
    EXPECT_EQ(hookWatch.nextTry, 0) << "no hook was put in again";
}

TEST_F(HookWatchTest, OneHookAloneIsMissedWhenTheOtherRests) {
    Start();
    TypeFor(1);
    platform::RemoveKeyboardHook();  // as far as this recording knows, it is still there
    Act(10, [] {
        simulated::UserTaps('A');
        simulated::UserMovesTo({++column, 300});
    });
    EXPECT_FALSE(Told()) << "nothing can be told while the mouse is heard";
    TypeFor(5);
    EXPECT_TRUE(Told());
    EXPECT_TRUE(platform::KeyboardHookInstalled());
    EXPECT_TRUE(platform::MouseHookInstalled());
}

// The secure desktop, a window of higher privilege: new hooks are as deaf as the old ones.
TEST_F(HookWatchTest, WhereNoHookHelpsTheTriesGrowRareAndTheFirstCallEndsThat) {
    Start();
    simulated::HideInputFromHooks();
    EXPECT_THAT((std::vector{RepairsIn(60), RepairsIn(60), RepairsIn(300)}), ElementsAre(4, 1, 5));
    simulated::HideInputFromHooks(false);
    const std::int32_t before = Newest();
    TypeFor(1);
    EXPECT_EQ(Newest(), before + 4) << "the hooks were there all the time";
    simulated::DropHooks();
    TypeFor(5);
    EXPECT_GT(Newest(), before + 4) << "no waiting for the next rare try";
}

TEST_F(HookWatchTest, HooksThatWereRefusedAtTheStartAreAskedForAgain) {
    settings.Display_Recording_Window = 0;
    simulated::RefuseHooks();
    Start();
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    TypeFor(6);
    EXPECT_THAT(simulated::Tray().tip, StartsWith(Notice)) << "without its form the tip alone can tell";
    simulated::RefuseHooks(false);
    TypeFor(10);
    EXPECT_TRUE(platform::MouseHookInstalled() && platform::KeyboardHookInstalled());
    EXPECT_GE(Newest(), 0);
}

}  // namespace
