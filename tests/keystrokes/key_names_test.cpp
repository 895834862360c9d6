#include "keystrokes/notation.h"
#include "support/story.h"

namespace {

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

}  // namespace
