// The words that stand for numbers in the text of an event.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "jobs/job_records.h"

// Room for the longest name. A copy of all of it has a length that the compiler knows, which is twice as fast.
struct ShortName {
    std::array<char, 24> text{};
    std::size_t size = 0;

    constexpr ShortName() = default;
    constexpr explicit ShortName(std::string_view name) : size(name.size()) {
        std::copy(name.begin(), name.end(), text.begin());
    }
    constexpr operator std::string_view() const { return {text.data(), size}; }
};

// What an event does. The last two and the numbers stand for what has no name of its own.
struct EventAction {
    ShortName name;
    std::int32_t type = 0;   // dwType
    std::int32_t value = 0;  // dwFlags of a mouse event, KeyState of a key event
    bool isNamed = true;     // false: the value stands beside it
};

// nullptr for an event of an unknown type.
const EventAction* ActionOf(const JobEvent& event);

// As a number for FindAction's caller to keep: the place in the list of actions.
std::optional<std::int64_t> FindAction(std::string_view name);
const EventAction& ActionAt(std::int64_t place);

// A key's name in the notation of keystrokes, or the letter or digit on it; empty where neither tells it from others.
const ShortName& NameOfKey(std::int32_t vk);
std::optional<std::int64_t> FindKey(std::string_view name);

// What to do without the window; empty for a number without a name.
std::string_view NameOfChoice(std::uint8_t ifNoWindow);
std::optional<std::int64_t> FindChoice(std::string_view name);
