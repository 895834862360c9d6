// What platform/text.h says of the system code page, which is Windows-1252 where no Windows is.
#include "platform/text.h"

#include "code_pages/windows_1252.h"

namespace platform {

int SystemCodePage() {
    return windows_1252::Number;
}

std::string FromUtf8(std::string_view utf8) {
    return windows_1252::FromUtf8(utf8);
}

std::string ToUtf8(std::string_view text) {
    return windows_1252::ToUtf8(text);
}

std::string LowerCase(std::string_view text) {
    return windows_1252::LowerCase(text);
}

std::string UpperCase(std::string_view text) {
    return windows_1252::UpperCase(text);
}

}  // namespace platform
