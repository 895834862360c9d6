#include "replay/timing.h"

#include <limits>

#include "settings/settings.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

namespace {

using platform::TickCount;

constexpr int CapsLock = platform::VirtualKeyCapital;

// A run with its status window up.
class TimedWaiting : public testing::Test {
protected:
    TimedWaiting() { settings.Display_Executing_Status = 1; }
};

TEST(MoveCursor, BeyondTheScreenStopsAtItsEdge) {
    constexpr int Most = std::numeric_limits<std::int32_t>::max();
    simulated::SetScreenSize({1000, 700});
    MoveCursor(5000, -5);
    EXPECT_EQ(platform::CursorPosition(), (platform::Point{999, 0}));
    MoveCursor(-Most, Most);
    EXPECT_EQ(platform::CursorPosition(), (platform::Point{0, 699}));
    EXPECT_EQ(simulated::Journal().back().record.dwFlags(), 32769);
    EXPECT_EQ(simulated::Journal().back().record.mouseTime(), 0);
    EXPECT_EQ(heldInput.LastCursorPosition, (platform::Point{-Most, Most}));
}

TEST_F(TimedWaiting, EndsOnTimeAndNotOnTheGrid) {
    for (const int ms : {-5, 0, 1, 49, 50, 51, 99, 100, 101, 333, 1000, 12345}) {
        const std::int64_t begin = platform::Microseconds();
        EXPECT_EQ(TimedWait(ms, false, 0), WaitDone);
        EXPECT_EQ(platform::Microseconds() - begin, 1000 * std::max(ms, 0)) << ms;
    }
}

TEST_F(TimedWaiting, EscapeIsSeenAtTheNextSliceOrAfterTheLast) {
    simulated::MeanwhileAt(120, [] { simulated::UserTaps(platform::VirtualKeyEscape); });
    EXPECT_EQ(TimedWait(500, false, 0), WaitCanceled);
    EXPECT_EQ(TickCount(), 150);
    simulated::MeanwhileAt(150 + 460, [] { simulated::UserTaps(platform::VirtualKeyEscape); });
    EXPECT_EQ(TimedWait(500, false, 0), WaitDone) << "the first tap was taken away";
    EXPECT_TRUE(EscapePressed(false)) << "one in the last slice is left for the next poll";
}

TEST_F(TimedWaiting, PumpsEveryFiftyMilliseconds) {
    std::vector<std::int64_t> pumps;
    simulated::Every(1, [&] { pumps.push_back(TickCount()); });
    EXPECT_EQ(TimedWait(240, false, 0), WaitDone);
    EXPECT_EQ(pumps, (std::vector<std::int64_t>{50, 100, 150}));
}

// A handler that takes long eats up the sleep behind it, in the middle of a wait and near its end.
TEST_F(TimedWaiting, SlowPumpDoesNotMakeTheWaitLate) {
    for (const std::int64_t moment : {0, 200, 400}) {
        const std::int64_t begin = TickCount();
        simulated::At(begin + moment, [] { platform::Sleep(90); });
        EXPECT_EQ(TimedWait(500, false, 0), WaitDone);
        EXPECT_EQ(TickCount() - begin, 500) << moment;
    }
}

TEST(RestoreCapsLock, TapsOnceWhenTheStateDiffers) {
    RestoreCapsLock(0);
    EXPECT_TRUE(simulated::Journal().empty());
    RestoreCapsLock(1);
    const auto& journal = simulated::Journal();
    ASSERT_EQ(journal.size(), 2U);
    for (const simulated::InputEntry& entry : journal) EXPECT_EQ(entry.record.KeyCode(), 3801108);
    EXPECT_EQ(journal[0].record.KeyState(), 0);
    EXPECT_EQ(journal[1].record.KeyState(), 2);
    EXPECT_EQ(journal[1].time - journal[0].time, 20);
    EXPECT_EQ(platform::KeyState(CapsLock), 1);
    RestoreCapsLock(1);
    EXPECT_EQ(journal.size(), 2U);
}

// The whole state counts: a Caps Lock key held down is not "off", whatever its light says.
TEST(RestoreCapsLock, KeyHeldDownIsADifference) {
    simulated::SetToggle(CapsLock, true);
    simulated::UserPressesKey(CapsLock);
    const std::int16_t held = platform::KeyState(CapsLock);
    ASSERT_LT(held, 0);
    RestoreCapsLock(held);
    EXPECT_TRUE(simulated::Journal().empty());
    RestoreCapsLock(held & 1);
    EXPECT_EQ(simulated::Journal().size(), 2U);
}

TEST(ReleaseStuckKeys, SendsAnUpForEachHeldKeyAndForgetsThem) {
    for (const int key : {65, 160, 161}) KeyDownFlag(key) = true;
    ReleaseStuckKeys();
    ReleaseStuckKeys();
    std::vector<std::int32_t> released;
    for (const simulated::InputEntry& entry : simulated::Journal()) {
        EXPECT_EQ(entry.record.KeyState(), platform::KeyUp);
        released.push_back(entry.record.KeyCode());
    }
    const auto code = [](int key) { return platform::ScanCodeOf(key) * 65536 + key; };
    EXPECT_THAT(released, testing::ElementsAre(code(65), code(160), code(161)));
    KeyDownFlag(17) = true;
    simulated::SetInjection(simulated::Injection::Refused);
    ReleaseStuckKeys();
    EXPECT_FALSE(KeyDownFlag(17)) << "though the system refused it";
}

TEST(ReleaseStuckKeys, ReleasesTheButtonsThatWereSentDownAndNotUp) {
    const std::pair<std::int32_t, std::int32_t> sent[] = {{platform::MouseMove, 0},       {platform::MouseLeftDown, 0},
                                                          {platform::MouseMiddleDown, 0}, {platform::MouseXDown, 1},
                                                          {platform::MouseXDown, 2},      {platform::MouseXDown, 2},
                                                          {platform::MouseMiddleUp, 0},   {platform::MouseXUp, 1}};
    for (const auto& [action, data] : sent) {
        platform::InputRecord record;
        record.dwFlags() = platform::MouseAbsolute + action;
        record.mouseData() = data;
        platform::SendInput(record);
        NoteButton(record);
    }
    simulated::ClearJournals();
    ReleaseStuckKeys();
    ReleaseStuckKeys();
    ASSERT_EQ(simulated::Journal().size(), 2U);
    EXPECT_EQ(simulated::Journal()[0].record.dwFlags(), platform::MouseLeftUp);
    EXPECT_EQ(simulated::Journal()[1].record.dwFlags(), platform::MouseXUp);
    EXPECT_EQ(simulated::Journal()[1].record.mouseData(), 2);
    for (const int button : {1, 2, 4, 5, 6}) EXPECT_GE(platform::AsyncKeyState(button), 0) << button;
}

}  // namespace
