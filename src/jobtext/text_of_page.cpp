#include "jobtext/text_of_page.h"

#include "platform/text.h"

std::optional<std::string> ExactUtf8(std::string_view text, int codePage) {
    std::optional<std::string> utf8 = platform::ToUtf8(text, codePage);
    return utf8 && platform::FromUtf8(*utf8, codePage) == text ? utf8 : std::nullopt;
}

std::optional<std::string> FromExactUtf8(std::string_view utf8, int codePage) {
    std::optional<std::string> text = platform::FromUtf8(utf8, codePage);
    return text && platform::ToUtf8(*text, codePage) == utf8 ? text : std::nullopt;
}
