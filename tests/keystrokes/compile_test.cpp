#include "keystrokes/notation.h"
#include "support/story.h"

namespace {

struct Compiled {
    int result = 0;
    std::vector<platform::InputRecord> records;
    std::vector<bool> extended;
    std::string message;
};

Compiled Compile(const std::string& text) {
    Compiled compiled;
    compiled.records.resize(3);  // what a call before left behind
    compiled.result = CompileKeystrokes(text, compiled.records, compiled.extended, compiled.message);
    return compiled;
}

TEST(CompileKeystrokes, MakesOneRecordForEachToken) {
    const Compiled compiled = Compile("a{ENTER DOWN}{enter UP}{WHEEL UP}");
    EXPECT_EQ(compiled.result, 4);
    EXPECT_EQ(compiled.message, "OK!");
    ASSERT_EQ(compiled.records.size(), 4U);
    const std::vector<std::pair<int, int>> expected = {
        {platform::ScanCodeOf(65) * 65536 + 65, ActionPress},
        {platform::ScanCodeOf(13) * 65536 + 13, ActionDown},
        {platform::ScanCodeOf(13) * 65536 + 13, ActionUp},
        {65536 + WheelKey, ActionUp},
    };
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(compiled.records[i].dwType(), platform::InputKeyboard);
        EXPECT_EQ(compiled.records[i].KeyCode(), expected[i].first) << i;
        EXPECT_EQ(compiled.records[i].KeyState(), expected[i].second) << i;
        EXPECT_EQ(compiled.records[i].keyTime(), 0);
    }
}

// A capital adds no shift: "aB" presses the same keys as "ab".
TEST(CompileKeystrokes, LetterCaseIsNoKey) {
    EXPECT_EQ(Compile("aB").records[1].KeyCode(), Compile("ab").records[1].KeyCode());
    EXPECT_EQ(Compile("{F5}").records[0].KeyCode(), Compile("{f5}").records[0].KeyCode());
}

TEST(CompileKeystrokes, MarksExtendedKeysWhileAShiftIsHeld) {
    const std::pair<std::string, std::vector<bool>> cases[] = {
        {"{LEFT_ARROW}{HOME}", {false, false}},
        {"{L_SHIFT DOWN}{LEFT_ARROW}{L_SHIFT UP}{LEFT_ARROW}", {false, true, false, false}},
        {"{R_SHIFT DOWN}{PAGE_UP}{R_SHIFT UP}{PAGE_UP}", {true, true, true, false}},
        {"{L_SHIFT DOWN}a{DEL}{PRINT_SCREEN}{DOWN_ARROW UP}", {false, false, false, false, true}},
        {"{L_SHIFT DOWN}{R_SHIFT DOWN}{R_SHIFT UP}{END}", {false, true, true, true}},
        {"{L_SHIFT}{END}{L_SHIFT UP}{END}", {false, true, false, false}},  // a pressed shift counts as held
    };
    for (const auto& [text, extended] : cases) EXPECT_EQ(Compile(text).extended, extended) << text;
}

TEST(CompileKeystrokes, FailuresTellTheTokenAndLeaveNothing) {
    const std::tuple<std::string, int, std::string> cases[] = {
        {"", 0, "There is no keystrokes to send"},
        {"{NO_KEY}a", 0, "Invalid keystroke:\"{NO_KEY}\""},
        {"ab{no_key down}c", -2, "Invalid keystroke:\"{no_key down}\""},
        {std::string("a\0", 2), -1, std::string("Invalid keystroke:\"\0\"", 21)},
        {"a{0}", -1, "Invalid scancode for keystroke \"{0}\""},
        {"{1 DOWN}", 0, "Invalid scancode for keystroke \"{1 DOWN}\""},
    };
    for (const auto& [text, result, message] : cases) {
        SCOPED_TRACE(text);
        const Compiled compiled = Compile(text);
        EXPECT_EQ(compiled.result, result);
        EXPECT_EQ(compiled.message, message);
        EXPECT_TRUE(compiled.records.empty());
        EXPECT_TRUE(compiled.extended.empty());
    }
}

TEST(CompileKeystrokes, OpenBraceIsARangeFailure) {
    for (const std::string text : {"{", "ab{c", "{ENTER}{"}) {
        try {
            Compile(text);
            ADD_FAILURE() << text << " compiled";
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.Kind(), FailureKind::Range);
            EXPECT_NE(std::string(failure.what()).find(text), std::string::npos);
        }
    }
}

// A slip in the word does what the token before it did; a first token goes down.
TEST(CompileKeystrokes, BadWordRepeatsTheActionBeforeIt) {
    const Compiled compiled = Compile("{a off}{b UP}{c off}");
    ASSERT_EQ(compiled.result, 3);
    EXPECT_EQ(compiled.records[0].KeyState(), ActionDown);
    EXPECT_EQ(compiled.records[2].KeyState(), ActionUp);
    EXPECT_EQ(simulated::ShownBoxes().size(), 2U);
}

}  // namespace
