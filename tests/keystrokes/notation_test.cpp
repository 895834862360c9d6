#include "keystrokes/notation.h"
#include "support/story.h"

namespace {

TEST(Tokens, TextIsCutAtCharactersAndClosedBraces) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"aB", {"a", "B"}},
        {"{a}", {"{a}"}},
        {"x{L_SHIFT DOWN}y z", {"x", "{L_SHIFT DOWN}", "y", " ", "z"}},
        {"a}b", {"a", "}", "b"}},
        {"{}{{}}", {"{}", "{{}", "}"}},
        {"{F5}{f5}", {"{F5}", "{f5}"}},
    };
    for (const auto& [text, tokens] : cases) {
        SCOPED_TRACE(text);
        const int count = static_cast<int>(tokens.size());
        ASSERT_EQ(TokenCount(text), count);
        int start = 0;
        for (int i = 0; i < count; ++i) {
            const Token token = TokenAt(text, i);
            EXPECT_EQ(token.text, tokens[static_cast<std::size_t>(i)]);
            EXPECT_EQ(token.index, i);
            EXPECT_EQ(token.start, start);
            EXPECT_EQ(token.length, static_cast<int>(token.text.size()));
            start += token.length;
        }
        for (const int outside : {-1, count}) {
            const Token nothing = TokenAt(text, outside);
            EXPECT_EQ(nothing.text, "");
            EXPECT_EQ(nothing.start, -1);
            EXPECT_EQ(nothing.length, -1);
        }
    }
}

TEST(Tokens, OpenBraceEndsTheTextWithoutAResult) {
    EXPECT_EQ(TokenCount("{"), -1);
    EXPECT_EQ(TokenCount("ab{c"), -1);
    EXPECT_EQ(TokenCount("{a}{"), -1);
    EXPECT_EQ(TokenAt("ab{c", 1).text, "b");
    EXPECT_EQ(TokenAt("ab{c", 2).text, "");
    EXPECT_EQ(TokenAt("ab{c", 2).length, -1);
    EXPECT_EQ(TokenUnder("ab{c", 1).index, 1);
    EXPECT_EQ(TokenUnder("ab{c", 3).index, -1);
}

TEST(TokenUnder, FindsTheTokenThatCoversThePosition) {
    const std::string text = "a{F5}b";
    const std::vector<int> indexByPosition = {0, 1, 1, 1, 1, 2, 2};  // the last one is the end of the text
    for (int position = 0; position <= static_cast<int>(text.size()); ++position) {
        EXPECT_EQ(TokenUnder(text, position).index, indexByPosition[static_cast<std::size_t>(position)]) << position;
    }
    EXPECT_EQ(TokenUnder(text, 3).start, 1);
    EXPECT_EQ(TokenUnder(text, 3).length, 4);
    EXPECT_EQ(TokenUnder("", 0).index, -1);
    EXPECT_EQ(TokenUnder(text, -1).index, -1);
}

TEST(ParseToken, AnotherWordShowsABoxAndKeepsTheAction) {
    for (const std::string token : {"{a sideways}", "{a }", "{a  DOWN}", "{a DOWN }"}) {
        SCOPED_TRACE(token);
        int vk = 77;
        int action = ActionUp;
        const std::size_t before = simulated::ShownBoxes().size();
        ParseToken(token, vk, action);
        EXPECT_EQ(vk, 65);
        EXPECT_EQ(action, ActionUp);
        ASSERT_EQ(simulated::ShownBoxes().size(), before + 1);
    }
    EXPECT_EQ(simulated::ShownBoxes()[0].text, "nije ni up ni down, event_str: {A SIDEWAYS}");
}

TEST(KeyIsHeld, LooksBackForTheLastTokenOfTheKey) {
    const std::tuple<std::string, int, int, bool> cases[] = {
        {"{L_SHIFT DOWN}ab", 2, 160, true},
        {"{L_SHIFT DOWN}ab", 2, 161, false},
        {"{L_SHIFT DOWN}a{L_SHIFT UP}", 2, 160, false},
        {"{L_SHIFT DOWN}a{L_SHIFT UP}", 1, 160, true},
        {"{L_SHIFT DOWN}{L_SHIFT}", 1, 160, false},  // a press lets go again
        {"{CTRL DOWN}", 0, 163, true},
        {"{L_SHIFT DOWN}", 99, 160, true},
        {"{L_SHIFT DOWN}", -1, 160, false},
        {"", 0, 160, false},
        {"{L_SHIFT DOWN}{", 1, 160, false},
        {"{ALT DOWN}", 0, 164, true},
        {"{ALT DOWN}", 0, 165, false},  // the name leads to the lowest of its keys alone
    };
    for (const auto& [text, from, vk, held] : cases) EXPECT_EQ(KeyIsHeld(text, from, vk), held) << text;
}

TEST(KeyNameFromCode, TakesTableThenCharacterThenNumber) {
    const std::pair<int, std::string> cases[] = {
        {8, "{BACKSPACE}"},
        {27, "{ESC}"},
        {37, "{LEFT_ARROW}"},
        {40, "{DOWN_ARROW}"},
        {46, "{DEL}"},
        {91, "{L_WINKEY}"},
        {112, "{F1}"},
        {123, "{F12}"},
        {144, "{NUM_LOCK}"},
        {163, "{R_CTRL}"},
        {165, "{ALT}"},
        {300, "{WHEEL}"},
        {65, "a"},
        {48, "0"},
        {32, " "},
        {186, ";"},
        {124, "{124}"},
        {0, "{0}"},
        {256, "{256}"},
        {299, "{299}"},
    };
    for (const auto& [vk, name] : cases) EXPECT_EQ(KeyNameFromCode(vk), name);
    EXPECT_THROW(KeyNameFromCode(301), RuntimeFailure);
    EXPECT_THROW(KeyNameFromCode(-1), RuntimeFailure);
}

TEST(KeyCodeFromName, KnowsNamesCharactersNumbersAndTheWheel) {
    const std::pair<std::string, int> cases[] = {
        {"{ENTER}", 13}, {"{enter}", 13},  {"{Enter}", -1},  {"ENTER", 13},  {"F12", 123},     {"f12", 123},
        {"F5", -1},  // too short to be taken for a name without its braces
        {"{F5}", 116},   {"{WHEEL}", 300}, {"{WhEeL}", 300}, {"WHEEL", -1},  {"{SHIFT}", 161}, {"{CTRL}", 163},
        {"{shift}", -1}, {"{124}", 124},   {"{123}", -1},    {"{13}", -1},   {"a", 65},        {"A", 65},
        {"{a}", 65},     {"{A}", 65},      {"{ALT}", 164},   {"{alt}", 165}, {"", -1},         {"{}", -1},
        {"{{}", -1},     {"c", 67},        {"d", 68},        {"\x7F", -1},   {"{999}", -1},    {"{1}", 1},
    };
    for (const auto& [token, vk] : cases) EXPECT_EQ(KeyCodeFromName(token), vk) << token;
}

// The digits stand on the numeric pad too, above the main row in number; signs take the pad's key.
TEST(KeyCodeFromName, DigitsTakeTheMainRowAndSignsTheHighestKey) {
    ASSERT_EQ(KeyNameFromCode(96), "0") << "the layout is to have a numeric pad";
    for (int digit = 0; digit <= 9; ++digit) EXPECT_EQ(KeyCodeFromName(std::to_string(digit)), 48 + digit);
    ASSERT_EQ(KeyNameFromCode(109), "-");
    EXPECT_EQ(KeyCodeFromName("-"), 189);
    EXPECT_EQ(KeyCodeFromName("*"), 106);
}

// What the table or the layout calls by a name, the name calls back: with the same name, if not by the same key.
TEST(KeyCodeFromName, LeadsBackToTheSameName) {
    for (int vk = 0; vk <= 255; ++vk) {
        const std::string name = KeyNameFromCode(vk);
        const int back = KeyCodeFromName(name);
        ASSERT_NE(back, KeyCodeUnknown) << name;
        EXPECT_EQ(KeyNameFromCode(back), name) << vk;
    }
}

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

TEST(ReduceKeystrokes, FoldsPairsAndNothingElse) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"aB", "ab"},
        {"{F5 DOWN}{F5 UP}", "{F5}"},
        {"{f5 down}{F5 up}x", "{F5}x"},
        {"{a DOWN}{a UP}", "a"},
        {"{a DOWN}", "{a DOWN}"},
        {"{F5 UP}{F5 DOWN}", "{F5 UP}{F5 DOWN}"},
        {"{F5 DOWN}{F6 UP}", "{F5 DOWN}{F6 UP}"},
        {"{F5 DOWN}{F5 DOWN}{F5 UP}", "{F5 DOWN}{F5}"},
        {"{F5 DOWN}{F5 UP}{F5 UP}", "{F5}{F5 UP}"},
        {"{L_SHIFT DOWN}a{L_SHIFT UP}", "{L_SHIFT DOWN}a{L_SHIFT UP}"},
        {"{SHIFT DOWN}{SHIFT UP}{CTRL}{alt}", "{R_SHIFT}{R_CTRL}{ALT}"},
        {"{WHEEL DOWN}{WHEEL UP}{wheel}", "{WHEEL DOWN}{WHEEL UP}{WHEEL}"},
        {"{NO_KEY}{NO_KEY DOWN}{NO_KEY UP}", "{NO_KEY}{NO_KEY DOWN}{NO_KEY UP}"},
        {"a{open", "a{open"},
    };
    for (const auto& [text, reduced] : cases) EXPECT_EQ(ReduceKeystrokes(text), reduced) << text;
    EXPECT_TRUE(simulated::ShownBoxes().empty());
}

using KeyMoves = std::vector<std::pair<int, bool>>;  // virtual key, down

KeyMoves MovesOf(const std::string& text) {
    std::vector<platform::InputRecord> records;
    std::vector<bool> extended;
    std::string message;
    EXPECT_EQ(CompileKeystrokes(text, records, extended, message), TokenCount(text)) << text << ": " << message;
    KeyMoves moves;
    for (const platform::InputRecord& record : records) {
        const int vk = record.KeyCode() % 65536;
        if (record.KeyState() != ActionUp) moves.emplace_back(vk, true);
        if (record.KeyState() != ActionDown) moves.emplace_back(vk, false);
    }
    return moves;
}

// Keys that go down and up at random, as fast fingers overlap them.
std::string RandomTyping(std::mt19937& random) {
    static const std::vector<int> keys = {65, 66, 32, 13, 9, 37, 160, 162, 164, 113, 46, 124};
    std::string text;
    for (int i = 0; i < 40; ++i) text += EventToToken(keys[random() % keys.size()], static_cast<int>(random() % 4));
    return text;
}

TEST(ReduceKeystrokes, KeepsEveryKeyDownAndKeyUpInOrder) {
    std::mt19937 random(20240607);
    int shorter = 0;
    for (int round = 0; round < 300; ++round) {
        const std::string text = RandomTyping(random);
        const std::string reduced = ReduceKeystrokes(text);
        SCOPED_TRACE(text);
        EXPECT_EQ(MovesOf(reduced), MovesOf(text));
        EXPECT_EQ(ReduceKeystrokes(reduced).size() <= reduced.size(), true);
        if (reduced.size() < text.size()) ++shorter;
    }
    EXPECT_GT(shorter, 100) << "the typing is to hold pairs";
}

}  // namespace
