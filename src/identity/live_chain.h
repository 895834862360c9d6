// A live window and the windows above it. Each property is asked of the system once, when it is first wanted, and kept
// for the life of the object: one look at the desktop, not to be held across a sleep. Texts are trimmed. Never pumps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/types.h"

class LiveChain {
public:
    explicit LiveChain(platform::WindowHandle window = 0) {
        levels.reserve(UsualLevels);
        levels.push_back({window, {}, {}, {}});
    }

    // Level 0 is the window itself, each next one its parent; 0 above the last.
    platform::WindowHandle Handle(std::int32_t level);

    // Empty above the last window. Valid until a higher level is asked for.
    const std::string& ClassName(std::int32_t level);
    const std::string& Caption(std::int32_t level);

    // All zero above the last window.
    const platform::WindowPlacement& Placement(std::int32_t level);

    // The last window of the walk over the parents; the owners of popups count as parents.
    platform::WindowHandle Root();

    // True when the system finds this very window by its class and caption, as it does with top-level windows.
    bool IsFoundByName(std::int32_t level);

    // The level where a recorded chain ends: the first window that is found by name, or the first without a parent. A
    // range failure when that is not among the first `maxLevels` windows.
    std::int32_t Depth(std::int32_t maxLevels);

private:
    struct Level {
        platform::WindowHandle handle = 0;
        std::optional<std::string> className;
        std::optional<std::string> caption;
        std::optional<platform::WindowPlacement> placement;
    };

    static constexpr std::size_t UsualLevels = 8;

    Level* At(std::int32_t level);

    std::vector<Level> levels;  // as far as they are known
};

// Of the live window, trimmed; empty for no window.
std::string LiveClass(platform::WindowHandle window);
std::string LiveCaption(platform::WindowHandle window);
