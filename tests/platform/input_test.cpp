#include "platform/input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "contract_desktop.h"
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/pump.h"
#include "platform/timers.h"
#include "platform/window_services.h"

using contract::OtherProgram;
using contract::SendTap;
using contract::Within;
using platform::InputRecord;
using platform::WindowHandle;

namespace {

constexpr int VirtualKeyShift = 16;
constexpr int VirtualKeyLeftMenu = 0xA4;
constexpr int VirtualKeyRight = 39;
constexpr int VirtualKeyF9 = 120;

void SendKey(int virtualKey, std::int32_t state) {
    EXPECT_EQ(platform::SendInput(contract::KeyRecord(virtualKey, state)), 1);
}

void SendMouse(std::int32_t flags, platform::Point at = {}, std::int32_t data = 0) {
    InputRecord mouse;
    mouse.dwType() = platform::InputMouse;
    mouse.dx() = at.x;
    mouse.dy() = at.y;
    mouse.mouseData() = data;
    mouse.dwFlags() = flags;
    EXPECT_EQ(platform::SendInput(mouse), 1);
}

void Click(std::int32_t press = platform::MouseLeftDown) {
    SendMouse(press);
    SendMouse(press << 1);
}

void SendMoveTo(platform::Point pixel) {
    EXPECT_EQ(platform::MoveCursorTo(pixel), 1);
}

void MoveTo(platform::Point pixel) {
    SendMoveTo(pixel);
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return platform::CursorPosition() == pixel; }))
        << "sent to " << pixel.x << ", " << pixel.y << ", but at " << platform::CursorPosition().x << ", "
        << platform::CursorPosition().y;
}

TEST(Input, AMoveLandsOnItsPixel) {
    const platform::Size screen = platform::ScreenSize();
    ASSERT_GT(screen.width, 0);
    ASSERT_GT(screen.height, 0);
    constexpr int steps = 23;
    for (int step = 0; step <= steps && !testing::Test::HasFailure(); ++step) {
        MoveTo({(screen.width - 1) * step / steps, (screen.height - 1) * (steps - step) / steps});
    }
    SendMouse(platform::MouseMove | platform::MouseAbsolute, {77, 88});
    EXPECT_TRUE(Within(contract::PatienceMs, [] {
        return platform::CursorPosition() == platform::Point{77, 88};
    })) << "a record speaks of pixels, too";
}

// Every pixel of a row and a column of every monitor, and the places beyond them.
TEST(Input, AMoveReachesEveryMonitor) {
    for (const platform::Rect& monitor : contract::Monitors()) {
        const int width = monitor.right - monitor.left;
        const int height = monitor.bottom - monitor.top;
        constexpr int steps = 7;
        for (int step = 0; step <= steps && !testing::Test::HasFailure(); ++step) {
            MoveTo({monitor.left + (width - 1) * step / steps, monitor.top + (height - 1) * (steps - step) / steps});
        }
    }
    SendMoveTo({-100'000, -100'000});
    // Windows keeps the cursor on a monitor; an X display of Wine lets it stand where there is none, at that edge.
    EXPECT_TRUE(Within(contract::PatienceMs, [] {
        return platform::CursorPosition().x == std::ranges::min(contract::Monitors(), {}, &platform::Rect::left).left;
    })) << "beyond the desktop lies its edge";
}

TEST(Input, ReachesTheDesktopAndProgramsLikeThisOne) {
    OtherProgram program;
    const WindowHandle other = program.Add({.caption = "other"});
    const WindowHandle own = contract::AddOwn({.caption = "own"});
    EXPECT_TRUE(platform::InputReachesDesktop());
    for (const WindowHandle window : {other, own, WindowHandle{0}, platform::DesktopRoot()}) {
        EXPECT_TRUE(platform::TakesOurInput(window));
    }
    program.Remove(other);
    EXPECT_TRUE(platform::TakesOurInput(other)) << "a window that is gone";
    contract::RemoveOwn(own);
}

TEST(Input, KeysArriveWhereTheFocusIs) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "Typing"});
    const WindowHandle edit = program.Add({.className = "Edit", .rect = {10, 10, 300, 60}, .parent = top});
    const WindowHandle other = program.Add({.className = "Edit", .rect = {10, 70, 300, 120}, .parent = top});
    program.Focus(edit);
    SendTap('A');
    SendKey(VirtualKeyShift, 0);
    SendTap('B');
    SendKey(VirtualKeyShift, platform::KeyUp);
    SendTap('7');
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return program.TextOf(edit) == "aB7"; })) << program.TextOf(edit);
    program.Focus(other);
    SendTap('C');
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return program.TextOf(other) == "c"; })) << program.TextOf(other);
    EXPECT_EQ(program.TextOf(edit), "aB7");
}

// With and without a pause between the move and the press, which the display may use to interfere.
TEST(Input, KeysStillOnTheirWayArriveBeforeTheFocusGoes) {
    OtherProgram busy;
    OtherProgram next;
    const WindowHandle nextWindow = next.Add({.rect = {600, 600, 700, 700}});
    const WindowHandle top = busy.Add({.rect = {100, 100, 500, 400}});
    const WindowHandle edit = busy.Add({.className = "Edit", .rect = {10, 10, 300, 60}, .parent = top});
    busy.Focus(edit);
    busy.Nap(200);
    for (int times = 0; times < 5; ++times) SendTap('A');
    EXPECT_TRUE(platform::BringToForeground(nextWindow));
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return busy.TextOf(edit).size() == 5; })) << busy.TextOf(edit);
}

TEST(Input, AClickGoesToTheWindowUnderTheCursor) {
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "Clicked", .rect = {100, 100, 500, 400}});
    const WindowHandle child = program.Add({.rect = {10, 10, 60, 60}, .parent = top});
    int round = 0;
    for (const int pauseMs : {0, 1, 2, 5, 10, 20, 50, 100, 150, 300}) {
        ++round;
        const auto click = [&](platform::Point point, WindowHandle window) {
            SendMoveTo(point);
            platform::Sleep(pauseMs);
            Click();
            EXPECT_TRUE(Within(2000, [&] { return program.ClicksOn(window) == round; }))
                << "at " << point.x << ", " << point.y << " after " << pauseMs << " ms";
        };
        click({115 + round, 145 - round}, child);
        click({300 + round, 300 - round}, top);
        ASSERT_EQ(program.ClicksOn(child), round);
    }
}

TEST(Input, AClickArrivesOnEveryMonitor) {
    OtherProgram program;
    const auto monitors = contract::Monitors();
    for (const platform::Rect& monitor : monitors) {
        const platform::Point corner{monitor.left + 150, monitor.top + 150};
        const WindowHandle window =
            program.Add({.caption = "Clicked", .rect = {corner.x, corner.y, corner.x + 300, corner.y + 200}});
        SendMoveTo({corner.x + 299, corner.y + 199});
        Click();
        EXPECT_TRUE(Within(contract::PatienceMs, [&] { return program.ClicksOn(window) == 1; }))
            << "on the monitor at " << monitor.left << ", " << monitor.top;
    }
    std::printf("Clicked on %d monitors.\n", static_cast<int>(monitors.size()));
}

TEST(Input, AsyncKeyStateRemembersATapOnce) {
    contract::AddOwn({.caption = "front"});
    platform::AsyncKeyState(VirtualKeyF9);
    EXPECT_EQ(platform::AsyncKeyState(VirtualKeyF9), 0);
    SendTap(VirtualKeyF9);
    EXPECT_EQ(platform::AsyncKeyState(VirtualKeyF9), 1);
    EXPECT_EQ(platform::AsyncKeyState(VirtualKeyF9), 0);
    SendKey(VirtualKeyF9, 0);
    EXPECT_LT(platform::AsyncKeyState(VirtualKeyF9), 0);
    EXPECT_LT(platform::AsyncKeyState(VirtualKeyF9), 0) << "down as long as it is down";
    SendKey(VirtualKeyF9, platform::KeyUp);
    EXPECT_GE(platform::AsyncKeyState(VirtualKeyF9), 0);
}

TEST(Input, KeyStateFollowsInjectedKeys) {
    contract::AddOwn({.caption = "front"});
    const auto toggled = [] {
        platform::Pump();
        return (platform::KeyState(platform::VirtualKeyCapital) & 1) != 0;
    };
    const bool atFirst = toggled();
    SendTap(platform::VirtualKeyCapital);
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return toggled() != atFirst; }));
    SendTap(platform::VirtualKeyCapital);
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return toggled() == atFirst; }));
    SendKey(VirtualKeyShift, 0);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return platform::KeyState(VirtualKeyShift) < 0; }));
    SendKey(VirtualKeyShift, platform::KeyUp);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return platform::KeyState(VirtualKeyShift) >= 0; }));
}

TEST(Input, KeysMapToScanCodesAndCharacters) {
    const std::tuple<int, int, int> keys[] = {{'A', 0x1E, 'A'},  {'7', 0x08, '7'},   {0x0D, 0x1C, 0x0D},
                                              {0x20, 0x39, ' '}, {0x1B, 0x01, 0x1B}, {0x70, 0x3B, 0},
                                              {0x10, 0x2A, 0},   {0xBC, 0x33, ','},  {0xFF, 0, 0}};
    for (const auto& [virtualKey, scanCode, character] : keys) {
        EXPECT_EQ(platform::ScanCodeOf(virtualKey), scanCode) << virtualKey;
        EXPECT_EQ(platform::CharacterOf(virtualKey), character) << virtualKey;
    }
}

// Whether hooks listen or not.
TEST(Input, TheLastInputIsTimed) {
    constexpr std::int64_t coarseMs = 50;
    contract::AddOwn({.caption = "front"});
    for (const bool hooked : {false, true}) {
        if (hooked) {
            EXPECT_TRUE(platform::InstallKeyboardHook([](const auto&) {}));
            EXPECT_TRUE(platform::InstallMouseHook([](const auto&) {}));
        }
        for (const bool key : {true, false}) {
            platform::Sleep(3 * coarseMs);
            const std::int64_t before = platform::TickCount();
            EXPECT_LT(platform::LastInputTick(), before - coarseMs);
            key ? SendTap(VirtualKeyF9) : SendMoveTo({hooked ? 210 : 310, 220});
            EXPECT_TRUE(Within(contract::PatienceMs, [&] { return platform::LastInputTick() >= before - coarseMs; }))
                << key << hooked;
            EXPECT_LE(platform::LastInputTick(), platform::TickCount() + coarseMs);
        }
    }
    platform::RemoveKeyboardHook();
    platform::RemoveMouseHook();
}

// --- Hooks ---

std::vector<platform::KeyboardHookRecord> keysHeard;
std::vector<platform::MouseHookRecord> mouseHeard;

struct Listening {
    Listening() {
        EXPECT_TRUE(platform::InstallKeyboardHook([](const auto& record) { keysHeard.push_back(record); }));
        EXPECT_TRUE(platform::InstallMouseHook([](const auto& record) { mouseHeard.push_back(record); }));
        keysHeard.clear();
        mouseHeard.clear();
    }
    ~Listening() {
        platform::RemoveKeyboardHook();
        platform::RemoveMouseHook();
    }
};

bool HeardKeys(std::size_t count) {
    return Within(contract::PatienceMs, [=] { return keysHeard.size() >= count; });
}

TEST(Hooks, HearInjectedKeysWithTheirFlags) {
    contract::AddOwn({.caption = "front"});
    const Listening listening;
    SendTap('A');
    SendTap(VirtualKeyRight, platform::KeyExtended);
    SendKey(VirtualKeyLeftMenu, 0);
    SendTap(VirtualKeyF9);
    SendKey(VirtualKeyLeftMenu, platform::KeyUp);
    ASSERT_TRUE(HeardKeys(8));

    constexpr std::uint32_t keyDown = 0x100, keyUp = 0x101, sysKeyDown = 0x104, sysKeyUp = 0x105;
    constexpr std::uint32_t extended = 1, injected = 16, up = 128;
    const std::uint32_t altDown = contract::Desktop().hooksTellAltDown ? 32 : 0;
    const std::tuple<std::uint32_t, std::uint32_t, int> expected[] = {
        {keyDown, injected, 'A'},
        {keyUp, injected | up, 'A'},
        {keyDown, injected | extended, VirtualKeyRight},
        {keyUp, injected | extended | up, VirtualKeyRight},
        {sysKeyDown, injected | altDown, VirtualKeyLeftMenu},
        {sysKeyDown, injected | altDown, VirtualKeyF9},
        {sysKeyUp, injected | altDown | up, VirtualKeyF9},
        {keyUp, injected | up, VirtualKeyLeftMenu},
    };
    ASSERT_EQ(keysHeard.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const auto& [message, flags, virtualKey] = expected[i];
        EXPECT_EQ(keysHeard[i].message, message) << "key " << i;
        EXPECT_EQ(keysHeard[i].flags, flags) << "key " << i;
        EXPECT_EQ(static_cast<int>(keysHeard[i].vkCode), virtualKey) << "key " << i;
    }
    EXPECT_EQ(static_cast<int>(keysHeard[0].scanCode), platform::ScanCodeOf('A'));
}

TEST(Hooks, HearTheInjectedMouse) {
    OtherProgram program;
    program.Add({.caption = "ground", .rect = {100, 100, 500, 400}});
    MoveTo({150, 150});
    const Listening listening;
    MoveTo({210, 220});
    Click();
    SendMouse(platform::MouseWheel, {}, -120);
    constexpr std::uint32_t move = 0x200;
    ASSERT_TRUE(Within(contract::PatienceMs, [] { return !mouseHeard.empty() && mouseHeard.back().message == 0x20A; }));
    const auto injected = [](const auto& record) { return (record.flags & 1) != 0; };
    const auto first = std::find_if(mouseHeard.begin(), mouseHeard.end(), injected);  // a display adds moves of its own
    ASSERT_NE(first, mouseHeard.end());
    EXPECT_EQ(first->message, move);
    EXPECT_EQ(first->pt, (platform::Point{210, 220}));

    std::erase_if(mouseHeard, [](const auto& record) { return record.message == move; });
    const std::uint32_t messages[] = {0x201, 0x202, 0x20A};
    ASSERT_EQ(mouseHeard.size(), std::size(messages));
    for (std::size_t i = 0; i < std::size(messages); ++i) {
        EXPECT_EQ(mouseHeard[i].message, messages[i]);
        EXPECT_EQ(mouseHeard[i].pt, (platform::Point{210, 220})) << "event " << i;
        EXPECT_EQ(mouseHeard[i].flags & 1, 1u);
    }
    EXPECT_EQ(static_cast<std::int16_t>(mouseHeard[2].mouseData >> 16), -120);
}

// Hooks tell the button that it is to the user, and that is what is sent again.
TEST(Hooks, HearTheButtonThatWasSentAlsoWhenTheyAreSwapped) {
    OtherProgram program;
    program.Add({.caption = "ground", .rect = {100, 100, 500, 400}});
    MoveTo({150, 150});
    for (const bool swapped : {true, false}) {
        contract::SwapButtons(swapped);
        const Listening listening;
        for (const std::int32_t press :
             {platform::MouseLeftDown, platform::MouseRightDown, platform::MouseMiddleDown}) {
            Click(press);
        }
        constexpr std::uint32_t middleUp = 0x208;
        ASSERT_TRUE(
            Within(contract::PatienceMs, [] { return !mouseHeard.empty() && mouseHeard.back().message == middleUp; }));
        std::vector<std::uint32_t> messages;
        for (const auto& record : mouseHeard) {
            if (record.message != 0x200) messages.push_back(record.message);
        }
        EXPECT_EQ(messages, (std::vector<std::uint32_t>{0x201, 0x202, 0x204, 0x205, 0x207, middleUp})) << swapped;
    }
}

TEST(Hooks, HearTheUserAsNotInjected) {
    if (!contract::HasUser()) GTEST_SKIP() << "nobody here to press a key";
    OtherProgram program;
    const WindowHandle top = program.Add({.caption = "ground"});
    const WindowHandle edit = program.Add({.className = "Edit", .rect = {10, 10, 300, 60}, .parent = top});
    program.Focus(edit);
    const Listening listening;
    contract::UserTaps('K');
    ASSERT_TRUE(HeardKeys(2));
    EXPECT_EQ(keysHeard[0].vkCode, static_cast<std::uint32_t>('K'));
    EXPECT_EQ(keysHeard[0].flags, 0u);
    EXPECT_EQ(keysHeard[1].flags, 128u);
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return program.TextOf(edit) == "k"; }))
        << "a hook takes nothing away";
    EXPECT_NE(platform::AsyncKeyState('K'), 0) << "the tap is over and still seen";
}

TEST(Hooks, AreThereFromInstallToRemove) {
    contract::AddOwn({.caption = "front"});
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    {
        const Listening listening;
        EXPECT_TRUE(platform::KeyboardHookInstalled());
        EXPECT_TRUE(platform::MouseHookInstalled());
        static int heardBySecond = 0;
        const platform::KeyboardHook second = [](const auto&) { ++heardBySecond; };
        EXPECT_NE(platform::InstalledKeyboardHook(), second);
        EXPECT_TRUE(platform::InstallKeyboardHook(second));
        EXPECT_EQ(platform::InstalledKeyboardHook(), second);
        SendTap('A');
        EXPECT_TRUE(Within(contract::PatienceMs, [] { return heardBySecond == 2; }));
        EXPECT_TRUE(keysHeard.empty()) << "the first procedure is replaced";
    }
    EXPECT_FALSE(platform::KeyboardHookInstalled());
    EXPECT_EQ(platform::InstalledKeyboardHook(), nullptr);
    EXPECT_FALSE(platform::MouseHookInstalled());
    SendTap('A');
    MoveTo({300, 300});
    Within(50, [] { return false; });
    EXPECT_TRUE(keysHeard.empty());
    EXPECT_TRUE(mouseHeard.empty());
    platform::RemoveKeyboardHook();
}

// What a pump lets in while a hook procedure runs, and what it keeps for later.
struct InsideACall {
    static inline WindowHandle own = 0;
    static inline int calls = 0;
    static inline int ticks = 0;
    static inline int putOff = 0;
    static inline bool pumped = false;

    static std::vector<int> Messages() { return contract::HotkeysAt(own); }

    static void OnKey(const platform::KeyboardHookRecord&) {
        EXPECT_TRUE(platform::InHookCall());
        if (++calls > 1) return;
        contract::PostHotkeyTo(own, 1);
        contract::SendHotkeyTo(own, 2);
        platform::CallFromPump([] { ++putOff; });
        platform::CallOutsideHooks([] { ++putOff; });
        contract::OthersTap('B');
        EXPECT_TRUE(Within(contract::PatienceMs, [] { return calls == 3 && !Messages().empty(); }))
            << calls << " calls";
        Within(50, [] { return false; });  // for whatever would come besides
        EXPECT_EQ(Messages(), std::vector<int>{2});
        EXPECT_EQ(ticks, 0);
        EXPECT_EQ(putOff, 0);
        pumped = true;
    }
};

TEST(Hooks, InsideACallThePumpLetsInWhatIsSentAndNothingOfOurs) {
    using Inside = InsideACall;
    Inside::own = contract::AddOwn({.caption = "front"});
    const platform::TimerId timer = platform::StartTimer(1, [] { ++Inside::ticks; });
    platform::Sleep(50);  // it is due by now
    EXPECT_FALSE(platform::InHookCall());
    ASSERT_TRUE(platform::InstallKeyboardHook(Inside::OnKey));
    SendKey('A', 0);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return Inside::pumped; }));
    SendKey('A', platform::KeyUp);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return Inside::calls == 4; }));
    platform::RemoveKeyboardHook();
    EXPECT_FALSE(platform::InHookCall());
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return Inside::putOff == 2 && Inside::ticks > 0; }))
        << "it was only put off";
    EXPECT_EQ(Inside::Messages(), (std::vector<int>{2, 1}));
    platform::StopTimer(timer);
    bool called = false;
    platform::CallOutsideHooks([&called] { called = true; });
    EXPECT_TRUE(called) << "at once, here";
    contract::RemoveOwn(Inside::own);
}

}  // namespace
