#include "platform/input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

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

InputRecord Mouse(std::int32_t flags, std::int32_t x = 0, std::int32_t y = 0, std::int32_t data = 0) {
    InputRecord record;
    record.dx() = x;
    record.dy() = y;
    record.dwFlags() = flags;
    record.mouseData() = data;
    return record;
}

InputRecord Key(int virtualKey, std::int32_t state = 0) {
    InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = platform::ScanCodeOf(virtualKey) * 65536 + virtualKey;
    record.KeyState() = state;
    return record;
}

std::int32_t Absolute(std::int32_t pixel, std::int32_t size, int added = 1) {
    return static_cast<std::int32_t>(std::nearbyint(pixel * (65535.0 / size))) + added;
}

void InjectMove(Point point) {
    const Size screen = platform::ScreenSize();
    platform::SendInput(Mouse(platform::MouseMove | platform::MouseAbsolute, Absolute(point.x, screen.width),
                              Absolute(point.y, screen.height)));
}

void Inject(std::initializer_list<int> keys) {
    for (const int key : keys) {
        platform::SendInput(Key(key));
        platform::SendInput(Key(key, platform::KeyUp));
    }
}

int PixelsMissed(std::int32_t width, int added) {
    SetScreenSize({width, 768});
    int missed = 0;
    for (std::int32_t pixel = 0; pixel < width; ++pixel) {
        platform::SendInput(Mouse(platform::MouseMove | platform::MouseAbsolute, Absolute(pixel, width, added)));
        if (CursorPosition().x != pixel) ++missed;
    }
    return missed;
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

TEST(Injection, EveryPixelIsReached) {
    int missedWithoutTheOne = 0;
    for (const std::int32_t width : {640, 800, 1024, 1280, 1366, 1920, 2560, 3840}) {
        EXPECT_EQ(PixelsMissed(width, 1), 0) << width;
        missedWithoutTheOne += PixelsMissed(width, 0);
    }
    EXPECT_GT(missedWithoutTheOne, 0) << "the way back cuts off";

    SetScreenSize({1280, 1024});
    platform::SendInput(Mouse(platform::MouseMove | platform::MouseAbsolute, 65535, -100));
    EXPECT_EQ(CursorPosition(), (Point{1279, 0}));
    platform::SendInput(Mouse(platform::MouseMove, -79, 30));
    EXPECT_EQ(CursorPosition(), (Point{1200, 30}));
}

TEST(Injection, TextIsTypedByTheLayout) {
    const WindowHandle edit = AddWindow({.className = "EDIT"});
    platform::SendInput(Key(Shift));
    Inject({'H', '1', 186});
    platform::SendInput(Key(Shift, platform::KeyUp));
    Inject({'I', ' ', 96, 8, 8});
    EXPECT_EQ(TextOf(edit), "H!:i");

    Inject({Capital, 'A', '1'});
    platform::SendInput(Key(RightShift));
    Inject({'B'});
    platform::SendInput(Key(RightShift, platform::KeyUp));
    Inject({Capital, 'C', 13});
    EXPECT_EQ(TextOf(edit), "H!:iA1bc\r\n");

    platform::SendInput(Key(Control));
    Inject({'V', 27});
    platform::SendInput(Key(Control, platform::KeyUp));
    Inject({8, 27, 112});
    EXPECT_EQ(TextOf(edit), "H!:iA1bc");
}

TEST(Injection, CanBeRefusedOrLost) {
    const WindowHandle edit = AddWindow({.className = "Edit"});
    SetInjection(Injection::Refused);
    EXPECT_EQ(platform::SendInput(Key('A')), 0);
    SetInjection(Injection::Discarded);
    EXPECT_EQ(platform::SendInput(Key('A')), 1);
    EXPECT_EQ(TextOf(edit), "");
    EXPECT_EQ(AsyncKeyState('A'), 0);
    EXPECT_TRUE(Journal().empty());

    SetInjection(Injection::Works);
    InputRecord strange = Key('A');
    strange.dwType() = 3;
    EXPECT_EQ(platform::SendInput(strange), 0);
    EXPECT_EQ(platform::SendInput(Key('A')), 1);
    EXPECT_EQ(TextOf(edit), "a");
}

TEST(KeyStates, DownTappedAndToggled) {
    UserTaps(27);
    EXPECT_EQ(AsyncKeyState(27), 1) << "a tap between two polls";
    EXPECT_EQ(AsyncKeyState(27), 0);
    UserHoldsEscapeFrom(100, 200);
    platform::Sleep(150);
    EXPECT_LT(AsyncKeyState(27), 0);
    platform::Sleep(50);
    EXPECT_EQ(AsyncKeyState(27), 0);

    UserPressesKey(Capital);
    UserPressesKey(Capital);  // auto-repeat
    EXPECT_LT(platform::KeyState(Capital), 0);
    UserReleasesKey(Capital);
    EXPECT_EQ(platform::KeyState(Capital), 1);
    SetToggle(Capital, false);
    EXPECT_EQ(platform::KeyState(Capital), 0);

    UserPressesKey(LeftShift);
    UserPressesKey(RightShift);
    UserReleasesKey(LeftShift);
    EXPECT_LT(platform::KeyState(Shift), 0) << "the right one is still held";
    UserReleasesKey(RightShift);
    EXPECT_EQ(platform::KeyState(Shift) & 0x8000, 0);

    UserPresses(Button::X2);
    EXPECT_LT(AsyncKeyState(6), 0);
    UserReleases(Button::X2);
    EXPECT_EQ(AsyncKeyState(6), 0);
    EXPECT_EQ(AsyncKeyState(300), 0);
}

TEST(Clicks, ActivateFocusAndReact) {
    const WindowHandle editor = AddWindow({.rect = {0, 0, 400, 400}, .thread = 7});
    const WindowHandle button = AddWindow({.rect = {10, 10, 60, 30}, .parent = editor});
    const WindowHandle other = AddWindow({.rect = {500, 0, 900, 400}, .thread = 8});
    WindowHandle dialog = 0;
    OnClick(button, [&] { dialog = AddWindow({.caption = "dialog", .owner = editor}); });

    InjectMove(CentreOf(button));
    platform::SendInput(Mouse(platform::MouseLeftDown));
    EXPECT_EQ(platform::ForegroundWindow(), editor);
    EXPECT_EQ(platform::FocusOf(7).window, button);
    InjectMove(CentreOf(other));
    platform::SendInput(Mouse(platform::MouseLeftUp));
    EXPECT_EQ(dialog, 0) << "released elsewhere";
    platform::SendInput(Mouse(platform::MouseLeftDown));
    InjectMove(CentreOf(button));
    platform::SendInput(Mouse(platform::MouseLeftUp));
    EXPECT_EQ(dialog, 0) << "pressed elsewhere";
    EXPECT_EQ(platform::ForegroundWindow(), other);

    platform::SendInput(Mouse(platform::MouseLeftDown));
    platform::SendInput(Mouse(platform::MouseLeftUp));
    EXPECT_NE(dialog, 0);
    EXPECT_EQ(platform::ForegroundWindow(), dialog);

    SetEnabled(editor, false);  // as a modal dialog does
    UserClicks({350, 390});
    EXPECT_EQ(platform::ForegroundWindow(), dialog);
    UserClicks({1270, 1000}, Button::Right);
    EXPECT_EQ(platform::ForegroundWindow(), platform::DesktopRoot());
}

TEST(Clicks, TheProgramsOwnWindowsReactInThePump) {
    const WindowHandle form = AddWindow({.thread = OwnThread});
    int clicks = 0;
    int keys = 0;
    OnClick(form, [&clicks] { ++clicks; });
    OnKey(form, 'N', [&keys] { ++keys; });
    UserClicks(CentreOf(form));
    UserTaps('N');
    platform::Sleep(1000);
    EXPECT_EQ(clicks + keys, 0);
    Pump();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(keys, 1);

    UserClicks(CentreOf(form));
    Destroy(form);
    Pump();
    EXPECT_EQ(clicks, 1) << "the window was gone before its turn";
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

TEST(Hooks, InjectedInputIsHeardAtOnce) {
    platform::InstallMouseHook(HearMouse);
    platform::InstallKeyboardHook(HearKey);
    platform::SendInput(Mouse(platform::MouseWheel, 0, 0, -120));
    platform::SendInput(Mouse(platform::MouseMove | platform::MouseLeftDown | platform::MouseLeftUp, 5, 6));
    ASSERT_EQ(mouseHeard.size(), 4u) << "one record, three inputs";
    EXPECT_EQ(mouseHeard[0].mouseData, 0xFF880000u);
    EXPECT_EQ(mouseHeard[0].flags, 1u);
    EXPECT_EQ(mouseHeard[1].message, 0x200u);
    EXPECT_EQ(mouseHeard[2].message, 0x201u);
    EXPECT_EQ(mouseHeard[2].pt, (Point{5, 6}));
    EXPECT_EQ(mouseHeard[3].message, 0x202u);

    platform::SendInput(Key(Shift));
    ASSERT_EQ(keysHeard.size(), 1u);
    EXPECT_EQ(keysHeard[0].vkCode, 160u) << "a plain modifier becomes the left one";
    EXPECT_EQ(keysHeard[0].flags, 16u);

    DropHooks();
    UserTaps('B');
    Pump();
    EXPECT_EQ(keysHeard.size(), 1u);
    EXPECT_TRUE(platform::KeyboardHookInstalled()) << "nobody tells";
    RefuseHooks();
    EXPECT_FALSE(platform::InstallKeyboardHook(HearKey));
}

TEST(Hooks, KeyMessagesAndFlags) {
    struct Case {
        int key;
        bool up;
        std::uint32_t message;
        std::uint32_t flags;
        std::uint32_t scanCode;
    };
    const Case cases[] = {
        {'A', false, 0x100, 0, 30},
        {'A', true, 0x101, 128, 30},  // a letter
        {39, false, 0x100, 1, 77},
        {39, true, 0x101, 129, 77},  // an arrow: extended
        {121, false, 0x104, 0, 68},
        {121, true, 0x105, 128, 68},  // F10 belongs to the menu
        {18, false, 0x104, 32, 56},   // ALT, held
        {'F', false, 0x104, 32, 33},
        {'F', true, 0x105, 128 + 32, 33},  // with ALT
        {Control, false, 0x104, 32, 29},   // CTRL over ALT:
        {'F', false, 0x100, 32, 33},       // no system message any more
        {Control, true, 0x101, 128 + 32, 29},
        {18, true, 0x101, 128, 56},  // ALT was used,
        {18, false, 0x104, 32, 56},
        {18, true, 0x105, 128, 56},  // and here it was not: it opens the menu
    };
    platform::InstallKeyboardHook(HearKey);
    for (const Case& each : cases) {
        SCOPED_TRACE(each.key);
        if (each.up) {
            UserReleasesKey(each.key);
        } else {
            UserPressesKey(each.key);
        }
        Pump();
        EXPECT_EQ(keysHeard.back().message, each.message);
        EXPECT_EQ(keysHeard.back().flags, each.flags);
        EXPECT_EQ(keysHeard.back().scanCode, each.scanCode);
    }
}

TEST(Hands, BlockedInputIsLost) {
    const WindowHandle edit = AddWindow({.className = "Edit"});
    platform::BlockInput(true);
    UserTypes("lost");
    Inject({'I'});
    platform::BlockInput(false);
    UserTypes("t!\n");
    EXPECT_EQ(TextOf(edit), "it!\r\n");
    RefuseBlockInput();
    platform::BlockInput(true);
    EXPECT_FALSE(InputBlocked());
}

TEST(Hands, WhatTheyDidCanBeInjectedAgain) {
    const WindowHandle window = AddWindow({.rect = {100, 100, 700, 600}});
    const WindowHandle first = AddWindow({.className = "Edit", .rect = {0, 0, 200, 30}, .parent = window});
    const WindowHandle second = AddWindow({.className = "Edit", .rect = {0, 40, 200, 70}, .parent = window});
    UserClicks({137, 111});
    UserTypes("Hello, {World}");
    platform::Sleep(20);
    UserClicks({299, 169}, Button::Right);
    UserTypes("~x_");
    UserTurnsWheel(-240);
    const std::vector<InputEntry> session = HandJournal();
    const std::string firstText = TextOf(first);
    EXPECT_EQ(firstText, "Hello, {World}");
    EXPECT_EQ(TextOf(second), "~x_");

    SetText(first, "");
    SetText(second, "");
    SetFocus(window);
    for (const InputEntry& each : session) platform::SendInput(each.record);
    EXPECT_EQ(TextOf(first), firstText);
    EXPECT_EQ(TextOf(second), "~x_");
    ASSERT_EQ(Journal().size(), session.size());
    for (std::size_t i = 0; i < session.size(); ++i) {
        EXPECT_EQ(Journal()[i].window, session[i].window) << i;
        EXPECT_EQ(Journal()[i].position, session[i].position) << i;
        EXPECT_EQ(Journal()[i].record.word, session[i].record.word) << i;
    }
    EXPECT_EQ(session.front().time, 0);
    EXPECT_EQ(session.back().time, 20);
    EXPECT_EQ(session.back().window, second) << "the wheel goes where the focus is";
}

TEST(Hotkeys, SwallowTheKeyAndArriveInThePump) {
    const WindowHandle form = AddWindow({.thread = OwnThread});
    const WindowHandle edit = AddWindow({.className = "Edit"});
    std::vector<std::intptr_t> ids;
    OnMessage(form, [&ids](const Message& message) {
        if (message.message == 0x312) ids.push_back(message.wParam);
    });
    OtherProgramHoldsHotkey(2, 'B');
    EXPECT_FALSE(platform::RegisterHotkey(form, 1, 2, 'B'));
    EXPECT_TRUE(platform::RegisterHotkey(form, 2, 2 + 4, 'N'));
    EXPECT_TRUE(platform::RegisterHotkey(form, 3, 0, 120));
    EXPECT_FALSE(platform::RegisterHotkey(form, 4, 0, 120)) << "taken by the program itself";
    EXPECT_FALSE(platform::RegisterHotkey(999, 5, 0, 121)) << "no such window";

    UserPressesKey(Control);
    UserTaps('N');
    UserPressesKey(Shift);
    UserTaps('N');
    Inject({'N'});
    UserReleasesKey(Shift);
    UserReleasesKey(Control);
    UserTaps(120);
    UserTaps('N');
    EXPECT_TRUE(ids.empty());
    Pump();
    EXPECT_THAT(ids, ElementsAre(2, 2, 3));
    EXPECT_EQ(TextOf(edit), "n");

    EXPECT_TRUE(platform::UnregisterHotkey(form, 3));
    EXPECT_FALSE(platform::UnregisterHotkey(form, 3));
    EXPECT_EQ(RegisteredHotkeys(), 1);
    EXPECT_FALSE(HotkeyRegistered(2, 'B'));
}

TEST(KeyLayout, ScanCodesAndCharacters) {
    struct Case {
        int key;
        int scanCode;
        int character;
    };
    const Case cases[] = {
        {'A', 30, 'A'}, {'0', 11, '0'}, {187, 13, '='}, {220, 43, '\\'}, {105, 73, '9'}, {107, 78, '+'}, {111, 53, '/'},
        {32, 57, ' '},  {27, 1, 27},    {13, 28, 13},   {8, 14, 8},      {9, 15, 9},     {160, 42, 0},   {161, 54, 0},
        {163, 29, 0},   {165, 56, 0},   {37, 75, 0},    {46, 83, 0},     {123, 88, 0},   {91, 0x5B, 0},  {93, 0x5D, 0},
        {44, 0x54, 0},  {144, 0x45, 0}, {20, 0x3A, 0},  {3, 0x46, 3},    {1, 0, 0},      {6, 0, 0},      {0, 0, 0},
        {255, 0, 0},    {-1, 0, 0},     {300, 0, 0}};
    for (const Case& each : cases) {
        EXPECT_EQ(platform::ScanCodeOf(each.key), each.scanCode) << each.key;
        EXPECT_EQ(platform::CharacterOf(each.key), each.character) << each.key;
    }
}

TEST(KeyLayout, EveryPrintableCharacterCanBeTyped) {
    const WindowHandle edit = AddWindow({.className = "Edit"});
    std::string all;
    for (char each = ' '; each <= '~'; ++each) all += each;
    UserTypes(all);
    EXPECT_EQ(TextOf(edit), all);
}
