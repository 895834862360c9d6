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
        EXPECT_THAT([&] { Compile(text); }, testing::ThrowsMessage<RuntimeFailure>(HasSubstr(text)));
    }
}

}  // namespace
