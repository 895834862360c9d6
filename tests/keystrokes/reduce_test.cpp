#include "keystrokes/notation.h"
#include "support/story.h"

namespace {

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
