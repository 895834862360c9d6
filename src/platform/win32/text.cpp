#include "platform/text.h"

#include "win32/code_page.h"

namespace platform {
namespace {

std::string Narrow(const std::wstring& wide, UINT codePage) {
    const int length = static_cast<int>(wide.size());
    const int needed = WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), length, text.data(), needed, nullptr, nullptr);
    return text;
}

// The numbers below are not of one code page, but ask for that of the system, of the thread and the like.
bool IsKnown(int codePage) {
    return codePage > static_cast<int>(CP_SYMBOL) && IsValidCodePage(static_cast<UINT>(codePage)) != 0;
}

}  // namespace

std::string FromUtf8(std::string_view utf8) {
    return Narrow(Widen(utf8, CP_UTF8), CP_ACP);
}

std::string ToUtf8(std::string_view text) {
    return Narrow(Widen(text, CP_ACP), CP_UTF8);
}

int SystemCodePage() {
    return static_cast<int>(GetACP());
}

std::optional<std::string> FromUtf8(std::string_view utf8, int codePage) {
    if (!IsKnown(codePage)) return std::nullopt;
    return Narrow(Widen(utf8, CP_UTF8), static_cast<UINT>(codePage));
}

std::optional<std::string> ToUtf8(std::string_view text, int codePage) {
    if (!IsKnown(codePage)) return std::nullopt;
    return Narrow(Widen(text, static_cast<UINT>(codePage)), CP_UTF8);
}

std::string LowerCase(std::string_view text) {
    std::string result(text);
    CharLowerBuffA(result.data(), static_cast<DWORD>(result.size()));
    return result;
}

std::string UpperCase(std::string_view text) {
    std::string result(text);
    CharUpperBuffA(result.data(), static_cast<DWORD>(result.size()));
    return result;
}

}  // namespace platform
