// One line of a run's action list.
#pragma once

#include <cstdint>
#include <string>

enum ActionRowKind : std::int32_t { MouseActionRow = 1, KeystrokeActionRow = 3 };

struct ActionRow {
    std::int32_t firstEvent = 0;
    std::int32_t lastEvent = 0;
    std::string text;  // keys of a keystroke row in full form; empty in a mouse row
    std::int32_t kind = MouseActionRow;
    std::int32_t flags = 0;  // dwFlags of the row's deciding mouse event; 0x8001 for a run of moves
    std::string windowName;  // caption of the top-level window; may be empty
};
