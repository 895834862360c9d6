// What a user has typed into a box for a number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// A whole number in decimal digits, with a minus sign or without, blanks around it allowed; no value for anything else.
// A number of more than 18 digits counts as one of 18 nines: it is out of every range either way.
std::optional<std::int64_t> TypedNumber(std::string_view text);
