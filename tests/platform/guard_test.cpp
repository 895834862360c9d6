// What the guard is told and what it makes of it, without its process: that is tried by tests/desktop/test_guard.py.
#include <gtest/gtest.h>

#include <random>

#include "guard/guard_command.h"
#include "guard/held_state.h"
#include "platform/input.h"
#include "simulated/desktop.h"

using platform::InputRecord;

namespace {

constexpr std::int32_t ButtonPresses[] = {platform::MouseLeftDown, platform::MouseRightDown, platform::MouseMiddleDown,
                                          platform::MouseXDown};

InputRecord Key(int virtualKey, std::int32_t state) {
    InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = platform::ScanCodeOf(virtualKey) * 65536 + virtualKey;
    record.KeyState() = state;
    return record;
}

InputRecord Button(std::int32_t flag, std::int32_t data = 0) {
    InputRecord record;
    record.dwFlags() = flag | platform::MouseAbsolute;
    record.mouseData() = data;
    return record;
}

InputRecord RandomInput(std::minstd_rand& random) {
    const bool up = random() % 2 == 0;
    if (random() % 4 != 0) {
        constexpr int keys[] = {'A', 'B', '7', 13, 37, 39, 91, 16, 17, 18, 160, 161, 162, 163, 164, 165};
        const std::int32_t extended = random() % 2 == 0 ? platform::KeyExtended : 0;
        return Key(keys[random() % std::size(keys)], extended | (up ? platform::KeyUp : 0));
    }
    const std::int32_t press = ButtonPresses[random() % std::size(ButtonPresses)];
    const std::int32_t data = press == platform::MouseXDown ? 1 + static_cast<std::int32_t>(random() % 2) : 0;
    return Button(up ? press << 1 : press, data);
}

std::vector<int> HeldKeys() {
    std::vector<int> held;
    for (int key = 0; key < 256; ++key) {
        if (platform::AsyncKeyState(key) < 0) held.push_back(key);
    }
    return held;
}

// Where the program was when it was killed.
enum class Death { BeforeSending, AfterSending, AfterAll };

TEST(HeldState, NamesAllThatIsDownWheneverTheProgramDies) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::minstd_rand random(seed + 1);
        HeldState held;
        const std::size_t length = 1 + random() % 30;
        for (std::size_t i = 0; i < length; ++i) {
            const bool last = i + 1 == length;
            const auto death = last ? static_cast<Death>(random() % 3) : Death::AfterAll;
            const InputRecord record = RandomInput(random);
            NoteBeforeSending(held, record);
            if (death != Death::BeforeSending) platform::SendInput(record);
            if (death == Death::AfterAll) NoteAfterSending(held, record);
        }
        HeldState asTheGuardSeesIt;
        CopyHeldState(held, asTheGuardSeesIt);
        ReleaseHeld(asTheGuardSeesIt);
        ASSERT_EQ(HeldKeys(), std::vector<int>()) << "seed " << seed;
    }
}

TEST(HeldState, ReleasesAsWasPressedAndOnlyOnce) {
    HeldState held;
    for (const InputRecord& press :
         {Key(163, platform::KeyExtended), Key('A', 0), Button(platform::MouseLeftDown), Key('B', 0)}) {
        NoteBeforeSending(held, press);
        NoteAfterSending(held, press);
    }
    NoteBeforeSending(held, Key('B', platform::KeyUp));
    NoteAfterSending(held, Key('B', platform::KeyUp));
    ReleaseHeld(held);
    ReleaseHeld(held);
    const auto& sent = simulated::Journal();
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_EQ(sent[0].record.dwFlags(), platform::MouseLeftUp);
    EXPECT_EQ(sent[1].record.word, Key('A', platform::KeyUp).word);
    EXPECT_EQ(sent[2].record.word, Key(163, platform::KeyExtended | platform::KeyUp).word) << "modifiers last";
}

TEST(GuardCommand, IsReadAsItWasWritten) {
    for (const std::uint64_t number : {std::uint64_t{1}, std::uint64_t{0x1A4}, ~std::uint64_t{0}}) {
        const auto read = ParseGuardCommand(GuardCommandText({number, 8}));
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(read->program, number);
        EXPECT_EQ(read->memory, 8u);
    }
}

TEST(GuardCommand, IsNothingElse) {
    for (const char* text : {"", "-guard", "-guard ", "-guard 1a4", "-guard 1a4 ", "-guard 1a4 0", "-guard 1a4 1a8 ",
                             "-guard 1a4 1a8x", "-guard  1a4 1a8", "-guard 1a4,1a8", "-guard 11111111111111111 1",
                             "-run C:\\-guard 1a4 1a8", "C:\\my -guard 1 2"}) {
        EXPECT_FALSE(ParseGuardCommand(text).has_value()) << text;
    }
}

}  // namespace
