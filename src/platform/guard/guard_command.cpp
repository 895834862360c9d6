#include "guard/guard_command.h"

#include <charconv>
#include <string_view>

namespace {

constexpr std::string_view Prefix = "-guard ";

// A number in front of `end`, which is not there for the last.
bool TakeHandle(std::string_view& text, std::uint64_t& handle) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, handle, 16);
    if (error != std::errc() || handle == 0) return false;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return true;
}

}  // namespace

std::string GuardCommandText(const GuardCommand& command) {
    char digits[2 * 16 + 1];
    char* end = std::to_chars(digits, digits + 16, command.program, 16).ptr;
    *end++ = ' ';
    end = std::to_chars(end, digits + sizeof digits, command.memory, 16).ptr;
    return std::string(Prefix) + std::string(digits, end);
}

std::optional<GuardCommand> ParseGuardCommand(const std::string& text) {
    std::string_view rest = text;
    if (!rest.starts_with(Prefix)) return std::nullopt;
    rest.remove_prefix(Prefix.size());
    GuardCommand command;
    if (!TakeHandle(rest, command.program) || !rest.starts_with(' ')) return std::nullopt;
    rest.remove_prefix(1);
    if (!TakeHandle(rest, command.memory) || !rest.empty()) return std::nullopt;
    return command;
}
