#include "jobtext/event_names.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "keystrokes/notation.h"

namespace {

constexpr EventAction Mouse(std::string_view name, std::int32_t flag) {
    return {name, platform::InputMouse, MouseFlagBase + flag};
}

// The most frequent ones first.
constexpr EventAction Actions[] = {
    Mouse("move", platform::MouseMove),
    {"key down", platform::InputKeyboard, 0},
    {"key up", platform::InputKeyboard, platform::KeyUp},
    Mouse("left down", platform::MouseLeftDown),
    Mouse("left up", platform::MouseLeftUp),
    Mouse("wheel", platform::MouseWheel),
    {"extended key down", platform::InputKeyboard, platform::KeyExtended},
    {"extended key up", platform::InputKeyboard, platform::KeyExtended | platform::KeyUp},
    Mouse("right down", platform::MouseRightDown),
    Mouse("right up", platform::MouseRightUp),
    Mouse("middle down", platform::MouseMiddleDown),
    Mouse("middle up", platform::MouseMiddleUp),
    Mouse("x down", platform::MouseXDown),
    Mouse("x up", platform::MouseXUp),
    {"double click", platform::InputMouse, DoubleClickFlags},
    {"text", INPUT_TEXT, 0},
    {"continuation", TextContinuation, 0},
    {"mouse", platform::InputMouse, 0, false},
    {"key", platform::InputKeyboard, 0, false},
};

constexpr std::string_view Choices[] = {"stop", "skip action", "execute anyway"};

constexpr std::int32_t KeyCount = 256;
constexpr std::string_view KeyCharacters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";  // a key is its character's number

bool Stands(const EventAction& action, std::int32_t type, std::int32_t value) {
    return action.type == type &&
           (action.value == value || !action.isNamed || type == INPUT_TEXT || type == TextContinuation);
}

// The two ALT keys have one name: it is the left one's.
std::array<std::string_view, KeyCount> UniqueNames() {
    std::array<std::string_view, KeyCount> names{};
    for (std::size_t place = 0; place < KeyCharacters.size(); ++place) {
        names[static_cast<unsigned char>(KeyCharacters[place])] = KeyCharacters.substr(place, 1);
    }
    for (std::size_t vk = 0; vk < KeyCount; ++vk) {
        const std::string_view name = KeyNames[vk];
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names[vk] = name;
    }
    return names;
}

const std::array<std::string_view, KeyCount>& Names() {
    static const std::array<std::string_view, KeyCount> names = UniqueNames();
    return names;
}

template <class List>
std::optional<std::int64_t> PlaceIn(const List& names, std::string_view name) {
    const auto found = std::find(std::begin(names), std::end(names), name);
    if (name.empty() || found == std::end(names)) return std::nullopt;
    return found - std::begin(names);
}

}  // namespace

const EventAction* ActionOf(const JobEvent& event) {
    const std::int32_t value = event.dwType() == platform::InputMouse ? event.dwFlags() : event.KeyState();
    const auto* const found = std::find_if(std::begin(Actions), std::end(Actions), [&](const EventAction& action) {
        return Stands(action, event.dwType(), value);
    });
    return found == std::end(Actions) ? nullptr : found;
}

std::optional<std::int64_t> FindAction(std::string_view name) {
    const auto* const found = std::find_if(std::begin(Actions), std::end(Actions),
                                           [name](const EventAction& action) { return action.name == name; });
    if (found == std::end(Actions)) return std::nullopt;
    return found - std::begin(Actions);
}

const EventAction& ActionAt(std::int64_t place) {
    return Actions[place];
}

std::string_view NameOfKey(std::int32_t vk) {
    return vk >= 0 && vk < KeyCount ? Names()[static_cast<std::size_t>(vk)] : std::string_view();
}

std::optional<std::int64_t> FindKey(std::string_view name) {
    if (name.size() == 1 && KeyCharacters.find(name.front()) != std::string_view::npos) return name.front();
    return PlaceIn(Names(), name);
}

std::string_view NameOfChoice(std::uint8_t ifNoWindow) {
    return ifNoWindow < std::size(Choices) ? Choices[ifNoWindow] : std::string_view();
}

std::optional<std::int64_t> FindChoice(std::string_view name) {
    return PlaceIn(Choices, name);
}
