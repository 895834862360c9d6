#include "widgets/typed_number.h"

#include <algorithm>

#include "base/text.h"

std::optional<std::int64_t> TypedNumber(std::string_view text) {
    constexpr std::int64_t largest = 999'999'999'999'999'999;
    std::string_view digits = TrimView(text);
    const bool negative = digits.starts_with('-');
    if (negative) digits.remove_prefix(1);
    if (digits.empty()) return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number > largest / 10 ? largest : number * 10 + (digit - '0');
    }
    return negative ? -number : number;
}
