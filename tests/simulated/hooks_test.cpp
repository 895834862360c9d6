#include "platform/hooks.h"
#include "support/story.h"

using namespace simulated;
using platform::AsyncKeyState;
using platform::CursorPosition;
using platform::InputRecord;
using platform::KeyboardHookRecord;
using platform::MouseHookRecord;
using platform::Pump;

namespace {

constexpr int Shift = 16;
constexpr int Control = 17;

InputRecord KeyDownRecord(int virtualKey) {
    InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = virtualKey;
    return record;
}

// What the hooks of a test heard.
std::vector<KeyboardHookRecord> keysHeard;
std::vector<MouseHookRecord> mouseHeard;
std::vector<Point> cursorsSeen;
std::vector<WindowHandle> foregroundsSeen;

void HearKey(const KeyboardHookRecord& record) {
    keysHeard.push_back(record);
}

void HearMouse(const MouseHookRecord& record) {
    mouseHeard.push_back(record);
    cursorsSeen.push_back(CursorPosition());
    foregroundsSeen.push_back(platform::ForegroundWindow());
}

}  // namespace

TEST(Hooks, TheUsersInputWaitsForTheHook) {
    const WindowHandle back = AddWindow({.rect = {0, 0, 200, 200}});
    const WindowHandle front = AddWindow({.rect = {300, 0, 500, 200}});
    ASSERT_TRUE(platform::InstallMouseHook(HearMouse));
    platform::Sleep(70);
    UserClicks({50, 60}, Button::X2);
    UserTaps('A');  // no hook of its own, but the keyboard waits behind the mouse
    platform::Sleep(30);
    EXPECT_EQ(AsyncKeyState('A'), 0);
    Pump();

    ASSERT_EQ(mouseHeard.size(), 3u);
    EXPECT_EQ(mouseHeard[0].message, 0x200u);
    EXPECT_EQ(mouseHeard[0].pt, (Point{50, 60}));
    EXPECT_EQ(cursorsSeen[0], (Point{0, 0})) << "the cursor moves after the hook";
    EXPECT_EQ(mouseHeard[1].message, 0x20Bu);
    EXPECT_EQ(mouseHeard[1].mouseData, 0x20000u);
    EXPECT_EQ(mouseHeard[1].flags, 0u);
    EXPECT_EQ(mouseHeard[1].time, 70u);
    EXPECT_THAT(foregroundsSeen, ElementsAre(front, front, back)) << "the window gets the press after the hook";
    EXPECT_EQ(AsyncKeyState('A'), 1);

    platform::RemoveMouseHook();
    UserMovesTo({7, 8});
    EXPECT_EQ(CursorPosition(), (Point{7, 8})) << "without a hook nothing waits";
    EXPECT_EQ(mouseHeard.size(), 3u);
}

TEST(Hooks, KeyMessagesAndFlags) {
    const std::tuple<int, bool, std::uint32_t, std::uint32_t> cases[] = {
        {39, false, 0x100, 1},
        {39, true, 0x101, 129},  // an arrow: extended
        {121, false, 0x104, 0},
        {121, true, 0x105, 128},  // F10 belongs to the menu
        {18, false, 0x104, 32},   // ALT, held
        {'F', false, 0x104, 32},
        {'F', true, 0x105, 128 + 32},  // with ALT
        {Control, false, 0x104, 32},   // CTRL over ALT:
        {'F', false, 0x100, 32},       // no system message any more
        {Control, true, 0x101, 128 + 32},
        {18, true, 0x101, 128},  // ALT was used,
        {18, false, 0x104, 32},
        {18, true, 0x105, 128},  // and here it was not: it opens the menu
    };
    platform::InstallKeyboardHook(HearKey);
    for (const auto& [key, up, message, flags] : cases) {
        (up ? UserReleasesKey : UserPressesKey)(key);
        Pump();
        EXPECT_EQ(keysHeard.back().message, message) << key;
        EXPECT_EQ(keysHeard.back().flags, flags) << key;
    }
    platform::SendInput(KeyDownRecord(Shift));
    EXPECT_EQ(keysHeard.back().vkCode, 160u) << "a plain modifier becomes the left one";
}
