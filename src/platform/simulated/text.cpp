// The simulated desktop knows Windows-1252 alone.
#include "platform/text.h"

#include "code_pages/windows_1252.h"

namespace platform {

std::optional<std::string> FromUtf8(std::string_view utf8, int codePage) {
    if (codePage != windows_1252::Number) return std::nullopt;
    return windows_1252::FromUtf8(utf8);
}

std::optional<std::string> ToUtf8(std::string_view text, int codePage) {
    if (codePage != windows_1252::Number) return std::nullopt;
    return windows_1252::ToUtf8(text);
}

}  // namespace platform
