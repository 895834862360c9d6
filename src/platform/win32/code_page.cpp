#include "win32/code_page.h"

namespace platform {
namespace {

// None for a text with characters that the code page does not have, or without any.
std::optional<std::string> InCodePage(const std::wstring& text) {
    std::string narrow(2 * text.size(), '\0');
    BOOL lossy = FALSE;
    narrow.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(),
                                                               static_cast<int>(text.size()), narrow.data(),
                                                               static_cast<int>(narrow.size()), nullptr, &lossy)));
    if (lossy || narrow.empty()) return std::nullopt;
    return narrow;
}

}  // namespace

std::wstring Widen(std::string_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed);
    return wide;
}

std::optional<std::string> PathInCodePage(const std::wstring& path) {
    if (const auto narrow = InCodePage(path)) return narrow;
    std::wstring shorter(LongestWidePath, L'\0');
    shorter.resize(GetShortPathNameW(path.c_str(), shorter.data(), LongestWidePath));
    return InCodePage(shorter);
}

}  // namespace platform
