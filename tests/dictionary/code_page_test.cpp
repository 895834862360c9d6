#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text.h"

namespace {

using Pair = std::pair<std::string, std::string>;

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
    for (const auto& [from, to] : cases) EXPECT_EQ(platform::FromUtf8(from), to) << from;
}

TEST(CodePage, ChangesTheCaseOfAccentedLetters) {
    const std::vector<Pair> cases = {
        {"AZ @[0", "az @[0"},
        {"ÄÉÑÞ×", "äéñþ×"},
        {"ŠŒŽŸ", "šœžÿ"},
    };
    for (const auto& [upper, lower] : cases) {
        EXPECT_EQ(platform::ToUtf8(platform::LowerCase(platform::FromUtf8(upper))), lower);
        EXPECT_EQ(platform::ToUtf8(platform::UpperCase(platform::FromUtf8(lower))), upper);
    }
    EXPECT_EQ(platform::UpperCase("\xDF\xF7"), "\xDF\xF7");  // the sharp s and the sign of division
}

}  // namespace
