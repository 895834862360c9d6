// What a record has in the file otherwise than a writer would write it, as runs of bytes: "44:2061 1068:00*100" is a
// blank and an "a" from byte 44 of the record on, and a hundred zeros from byte 1068 on.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

// The runs that turn `written` into `bytes`, which is as long; empty when they are the same.
std::string DifferingBytes(std::string_view bytes, std::string_view written);

// Puts the runs in; false, with `record` spoilt, for a text that is none of that or leads out of the record.
bool PutBytes(std::string_view runs, std::string& record);

void AppendHex(std::string& text, std::string_view bytes);

// No value for an odd number of digits, or for what is no digit.
std::optional<std::string> FromHex(std::string_view digits);
