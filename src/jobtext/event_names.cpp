#include "jobtext/event_names.h"

#include <algorithm>
#include <array>
#include <bit>
#include <iterator>
#include <unordered_map>

#include "keystrokes/notation.h"

namespace {

constexpr EventAction Mouse(std::string_view name, std::int32_t flag) {
    return {ShortName(name), platform::InputMouse, MouseFlagBase + flag};
}

// First those of the mouse, by the bits of their flags.
constexpr EventAction Actions[] = {
    Mouse("move", platform::MouseMove),
    Mouse("left down", platform::MouseLeftDown),
    Mouse("left up", platform::MouseLeftUp),
    Mouse("right down", platform::MouseRightDown),
    Mouse("right up", platform::MouseRightUp),
    Mouse("middle down", platform::MouseMiddleDown),
    Mouse("middle up", platform::MouseMiddleUp),
    Mouse("x down", platform::MouseXDown),
    Mouse("x up", platform::MouseXUp),
    Mouse("wheel", platform::MouseWheel),
    {ShortName("double click"), platform::InputMouse, DoubleClickFlags},
    {ShortName("mouse"), platform::InputMouse, 0, false},
    {ShortName("key down"), platform::InputKeyboard, 0},  // and the other states of keys
    {ShortName("extended key down"), platform::InputKeyboard, platform::KeyExtended},
    {ShortName("key up"), platform::InputKeyboard, platform::KeyUp},
    {ShortName("extended key up"), platform::InputKeyboard, platform::KeyExtended | platform::KeyUp},
    {ShortName("key"), platform::InputKeyboard, 0, false},
    {ShortName("text"), INPUT_TEXT, 0},
    {ShortName("continuation"), TextContinuation, 0},
};
enum ActionPlace : std::size_t {
    XUpPlace = 8,
    WheelPlace,
    DoubleClickPlace,
    OtherMousePlace,
    KeyDownPlace,
    OtherKeyPlace = 16,
    TextPlace,
    ContinuationPlace
};

std::size_t MousePlace(std::int32_t flags) {
    const auto bits = static_cast<std::uint32_t>(flags - MouseFlagBase);
    const auto bit = static_cast<std::size_t>(std::countr_zero(bits));
    if ((bits & (bits - 1)) == 0 && bit <= XUpPlace) return bit;
    if (bits == platform::MouseWheel) return WheelPlace;
    return flags == DoubleClickFlags ? DoubleClickPlace : OtherMousePlace;
}

constexpr std::string_view Choices[] = {"stop", "skip action", "execute anyway"};

constexpr std::int32_t KeyCount = 256;
constexpr std::string_view KeyCharacters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";  // a key is its character's number

// The two ALT keys have one name: it is the left one's.
std::array<ShortName, KeyCount> UniqueNames() {
    std::array<ShortName, KeyCount> names{};
    for (const char& character : KeyCharacters) {
        names[static_cast<unsigned char>(character)] = ShortName({&character, 1});
    }
    for (std::size_t vk = 0; vk < KeyCount; ++vk) {
        const std::string_view name = KeyNames[vk];
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names[vk] = ShortName(name);
    }
    return names;
}

const std::array<ShortName, KeyCount>& Names() {
    static const std::array<ShortName, KeyCount> names = UniqueNames();
    return names;
}

using Places = std::unordered_map<std::string_view, std::int64_t>;

// Imports look names up for every event.
Places PlacesOf(const std::array<ShortName, KeyCount>& names) {
    Places places;
    for (std::size_t vk = 0; vk < names.size(); ++vk) {
        if (names[vk].size > 0) places.emplace(names[vk], static_cast<std::int64_t>(vk));
    }
    return places;
}

}  // namespace

const EventAction* ActionOf(const JobEvent& event) {
    switch (event.dwType()) {
        case platform::InputMouse:
            return &Actions[MousePlace(event.dwFlags())];
        case platform::InputKeyboard:
            return &Actions[event.KeyState() >= 0 && event.KeyState() <= 3
                                ? KeyDownPlace + static_cast<std::size_t>(event.KeyState())
                                : OtherKeyPlace];
        case INPUT_TEXT:
            return &Actions[TextPlace];
        case TextContinuation:
            return &Actions[ContinuationPlace];
        default:
            return nullptr;
    }
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

const ShortName& NameOfKey(std::int32_t vk) {
    static const ShortName none;
    return vk >= 0 && vk < KeyCount ? Names()[static_cast<std::size_t>(vk)] : none;
}

std::optional<std::int64_t> FindKey(std::string_view name) {
    static const Places places = PlacesOf(Names());
    const auto found = places.find(name);
    return found == places.end() ? std::nullopt : std::optional(found->second);
}

std::string_view NameOfChoice(std::uint8_t ifNoWindow) {
    return ifNoWindow < std::size(Choices) ? Choices[ifNoWindow] : std::string_view();
}

std::optional<std::int64_t> FindChoice(std::string_view name) {
    const auto* const found = std::find(std::begin(Choices), std::end(Choices), name);
    if (found == std::end(Choices)) return std::nullopt;
    return found - std::begin(Choices);
}
