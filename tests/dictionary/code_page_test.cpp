#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text.h"

namespace {

struct Pair {
    std::string from;
    std::string to;
};

TEST(CodePage, EveryByteSurvivesTheWayThroughUtf8) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(platform::FromUtf8(platform::ToUtf8(text)), text) << byte;
    }
}

TEST(CodePage, TakesTheNearestLikenessOrAQuestionMark) {
    const std::vector<Pair> cases = {
        {"aé€Ÿ", "a\xE9\x80\x9F"},
        {"čćžđšČ",
         "cc\x9E"
         "d\x9A"
         "C"},
        {"łĐ", "l\xD0"},
        {"漢😀Ω", "???"},
        {"a\x80z", "a?z"},     // a byte that continues nothing
        {"a\xE2\x82", "a??"},  // cut short
        {"\xC3(", "?("},
        {"\xC0\xAF\xED\xA0\x80", "?????"},  // an overlong form, a surrogate
        {"\xF8\x88\x80\x80\x80", "?????"},
    };
    for (const Pair& one : cases) EXPECT_EQ(platform::FromUtf8(one.from), one.to) << one.from;
}

TEST(CodePage, ChangesTheCaseOfAccentedLetters) {
    const std::vector<Pair> cases = {
        {"AZ @[0", "az @[0"},
        {"ÄÉÑÞ×", "äéñþ×"},
        {"ŠŒŽŸ", "šœžÿ"},
    };
    for (const Pair& one : cases) {
        EXPECT_EQ(platform::ToUtf8(platform::LowerCase(platform::FromUtf8(one.from))), one.to);
        EXPECT_EQ(platform::ToUtf8(platform::UpperCase(platform::FromUtf8(one.to))), one.from);
    }
    EXPECT_EQ(platform::UpperCase("\xDF\xF7"), "\xDF\xF7");  // the sharp s and the sign of division
}

}  // namespace
