#include "tsj/words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array<std::pair<std::int32_t, const char*>, 10> mouseWords = {{
    {platform::MouseMove, "move"},
    {platform::MouseLeftDown, "left down"},
    {platform::MouseLeftUp, "left up"},
    {platform::MouseRightDown, "right down"},
    {platform::MouseRightUp, "right up"},
    {platform::MouseMiddleDown, "middle down"},
    {platform::MouseMiddleUp, "middle up"},
    {platform::MouseXDown, "X button down"},
    {platform::MouseXUp, "X button up"},
    {platform::MouseWheel, "wheel"},
}};

std::string MouseWord(std::int32_t flags) {
    if (flags == DoubleClickFlags) return "double click";
    const auto* const found =
        std::ranges::find_if(mouseWords, [&](const auto& word) { return word.first == flags - MouseFlagBase; });
    return found == mouseWords.end() ? "mouse, flags " + std::to_string(flags) : found->second;
}

std::string Choice(std::int64_t value, const std::array<const char*, 3>& words) {
    return value >= 0 && value < 3 ? words[static_cast<std::size_t>(value)] : "unknown (" + std::to_string(value) + ")";
}

}  // namespace

std::string SpeedWords(std::int32_t percent) {
    return percent == MaximumSpeed ? "maximum" : std::to_string(percent) + " %";
}

std::string SafetyWord(std::int32_t level) {
    return Choice(level, {"high", "medium", "low"});
}

std::string IfNoWindowWord(std::uint8_t choice) {
    return Choice(choice, {"stop", "skip", "execute anyway"});
}

std::string EventWord(const JobEvent& event) {
    switch (event.dwType()) {
        case platform::InputMouse:
            return MouseWord(event.dwFlags());
        case platform::InputKeyboard:
            return (event.KeyState() & platform::KeyUp) != 0 ? "key up" : "key down";
        case INPUT_TEXT:
            return "text";
        case TextContinuation:
            return "text, continued";
        default:
            return "unknown (" + std::to_string(event.dwType()) + ")";
    }
}

std::string EventData(const JobEvent& event) {
    switch (event.dwType()) {
        case platform::InputMouse: {
            const std::string place = std::to_string(event.dx()) + "," + std::to_string(event.dy());
            return event.mouseData() == 0 ? place : place + " data " + std::to_string(event.mouseData());
        }
        case platform::InputKeyboard:
            return "virtual key " + std::to_string(event.KeyCode() & 0xFFFF);
        default:
            return "string " + std::to_string(event.StringIndex());
    }
}
