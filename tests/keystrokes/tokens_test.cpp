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

}  // namespace
