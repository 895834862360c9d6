#include "tsj/words.h"

#include <array>

#include "jobtext/event_names.h"

namespace {

std::string Unknown(std::int64_t value) {
    return "unknown (" + std::to_string(value) + ")";
}

std::string KeyWord(std::int32_t virtualKey) {
    const std::string_view name = NameOfKey(virtualKey);
    return name.empty() ? "virtual key " + std::to_string(virtualKey) : std::string(name);
}

}  // namespace

std::string SpeedWords(std::int32_t percent) {
    return percent == MaximumSpeed ? "maximum" : std::to_string(percent) + " %";
}

std::string SafetyWord(std::int32_t level) {
    static constexpr std::array<const char*, 3> words = {"high", "medium", "low"};
    return level >= 0 && level < 3 ? words[static_cast<std::size_t>(level)] : Unknown(level);
}

std::string IfNoWindowWord(std::uint8_t choice) {
    const std::string_view name = NameOfChoice(choice);
    return name.empty() ? Unknown(choice) : std::string(name);
}

std::string EventWord(const JobEvent& event) {
    const EventAction* const action = ActionOf(event);
    return action == nullptr ? Unknown(event.dwType()) : std::string(action->name);
}

std::string EventData(const JobEvent& event) {
    switch (event.dwType()) {
        case platform::InputMouse: {
            const std::string place = std::to_string(event.dx()) + "," + std::to_string(event.dy());
            return event.mouseData() == 0 ? place : place + " data " + std::to_string(event.mouseData());
        }
        case platform::InputKeyboard:
            return KeyWord(event.KeyCode() & 0xFFFF);
        default:
            return "string " + std::to_string(event.StringIndex());
    }
}
