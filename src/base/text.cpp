#include "base/text.h"

std::string_view TrimView(std::string_view text) {
    constexpr std::string_view padding(" \0", 2);
    const auto first = text.find_first_not_of(padding);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(padding) - first + 1);
}

std::string BaseName(std::string_view path) {
    const auto backslash = path.rfind('\\');
    if (backslash != std::string_view::npos) path.remove_prefix(backslash + 1);
    return std::string(path.substr(0, path.size() < 4 ? 0 : path.size() - 4));
}

std::string WithoutTrailingBackslash(std::string_view path) {
    if (path.ends_with('\\')) path.remove_suffix(1);
    return std::string(path);
}
