#include "tsj/words.h"

#include <array>

#include "jobtext/event_names.h"

namespace {

std::string Choice(std::int64_t value, const std::array<const char*, 3>& words) {
    return value >= 0 && value < 3 ? words[static_cast<std::size_t>(value)] : "unknown (" + std::to_string(value) + ")";
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
    return Choice(level, {"high", "medium", "low"});
}

std::string IfNoWindowWord(std::uint8_t choice) {
    return Choice(choice, {"stop", "skip", "execute anyway"});
}

std::string EventWord(const JobEvent& event) {
    const EventAction* const action = ActionOf(event);
    return action == nullptr ? "unknown (" + std::to_string(event.dwType()) + ")" : std::string(action->name);
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
