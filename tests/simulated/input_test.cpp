#include "platform/input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/hotkeys.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "simulated/desktop.h"

using namespace simulated;
using platform::AsyncKeyState;
using platform::CursorPosition;
using platform::InputRecord;
using platform::KeyboardHookRecord;
using platform::MouseHookRecord;
using platform::Pump;
using testing::ElementsAre;

namespace {

constexpr int Shift = 16;
constexpr int LeftShift = 160;
constexpr int RightShift = 161;
constexpr int Control = 17;
constexpr int Capital = 20;

void Taps(std::initializer_list<int> keys) {
    for (const int key : keys) UserTaps(key);
}

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

TEST(Keys, AreTypedByTheLayout) {
    const WindowHandle edit = AddWindow({.className = "Edit"});
    std::string all;
    for (char each = ' '; each <= '~'; ++each) all += each;
    UserTypes(all);
    EXPECT_EQ(TextOf(edit), all);

    SetText(edit, "");
    UserPressesKey(Capital);  // and again, as a held key repeats itself
    Taps({Capital, 'A', '1'});
    UserPressesKey(RightShift);
    Taps({'B'});
    UserReleasesKey(RightShift);
    Taps({Capital, 'C', 96, 8, 13});
    UserPressesKey(Control);
    Taps({'V', 27});
    UserReleasesKey(Control);
    EXPECT_EQ(TextOf(edit), "A1bc\r\n");
    Taps({8, 27, 112});
    EXPECT_EQ(TextOf(edit), "A1bc") << "the line break goes at once";
}

TEST(Keys, OfAPairAreHeldTogether) {
    UserPressesKey(LeftShift);
    UserPressesKey(RightShift);
    UserReleasesKey(LeftShift);
    EXPECT_LT(platform::KeyState(Shift), 0) << "the right one is still held";
    UserReleasesKey(RightShift);
    EXPECT_GE(platform::KeyState(Shift), 0);
    UserPresses(Button::X2);
    EXPECT_LT(AsyncKeyState(6), 0);
    UserReleases(Button::X2);
    EXPECT_EQ(AsyncKeyState(6), 0);
}

TEST(Keys, HaveScanCodesAndCharacters) {
    const std::tuple<int, int, int> cases[] = {
        {'A', 30, 'A'}, {'0', 11, '0'}, {187, 13, '='}, {220, 43, '\\'}, {105, 73, '9'}, {107, 78, '+'}, {111, 53, '/'},
        {32, 57, ' '},  {27, 1, 27},    {13, 28, 13},   {8, 14, 8},      {9, 15, 9},     {160, 42, 0},   {161, 54, 0},
        {163, 29, 0},   {165, 56, 0},   {37, 75, 0},    {46, 83, 0},     {123, 88, 0},   {91, 0x5B, 0},  {93, 0x5D, 0},
        {44, 0x54, 0},  {144, 0x45, 0}, {20, 0x3A, 0},  {3, 0x46, 3},    {1, 0, 0},      {6, 0, 0},      {0, 0, 0},
        {255, 0, 0},    {-1, 0, 0},     {300, 0, 0}};
    for (const auto& [key, scanCode, character] : cases) {
        EXPECT_EQ(platform::ScanCodeOf(key), scanCode) << key;
        EXPECT_EQ(platform::CharacterOf(key), character) << key;
    }
}

TEST(Clicks, ActivateFocusAndReact) {
    const WindowHandle editor = AddWindow({.rect = {0, 0, 400, 400}, .thread = 7});
    const WindowHandle button = AddWindow({.rect = {10, 10, 60, 30}, .parent = editor});
    const WindowHandle other = AddWindow({.rect = {500, 0, 900, 400}, .thread = 8});
    WindowHandle dialog = 0;
    OnClick(button, [&] { dialog = AddWindow({.caption = "dialog", .owner = editor}); });

    for (const auto& [from, to] : {std::pair{button, other}, {other, button}}) {
        UserMovesTo(CentreOf(from));
        UserPresses();
        EXPECT_EQ(FocusedWindow(), from);
        UserMovesTo(CentreOf(to));
        UserReleases();
        EXPECT_EQ(dialog, 0) << "pressed or released elsewhere";
    }
    UserClicks(CentreOf(button));
    EXPECT_NE(dialog, 0);
    EXPECT_EQ(platform::ForegroundWindow(), dialog);
    SetEnabled(editor, false);  // as a modal dialog does
    UserClicks({350, 390});
    EXPECT_EQ(platform::ForegroundWindow(), dialog);
    UserClicks({1270, 1000}, Button::Right);
    EXPECT_EQ(platform::ForegroundWindow(), platform::DesktopRoot());
}

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

TEST(Hotkeys, SwallowTheirKey) {
    const WindowHandle form = AddWindow({.thread = OwnThread});
    const WindowHandle edit = AddWindow({.className = "Edit"});
    ASSERT_TRUE(platform::RegisterHotkey(form, 3, 0, 'N'));
    Taps({'N', 'M'});
    EXPECT_EQ(TextOf(edit), "m");
}

TEST(Hands, BlockedInputIsLost) {
    const WindowHandle edit = AddWindow({.className = "Edit"});
    platform::BlockInput(true);
    UserTypes("lost");
    platform::SendInput(KeyDownRecord('I'));
    platform::BlockInput(false);
    UserTypes("t!");
    EXPECT_EQ(TextOf(edit), "it!") << "what is injected goes through";
}
