// Two mends that make clicks out of raw presses and releases. PairClick finds left double clicks while the events
// arrive and marks them; RepairClicks, once at the end, folds each into one event and turns the Scroll Lock key, which
// serves as a left button during a recording, into mouse events. Right, middle and X buttons have no double click.
// Both work on the events of the recording; their traces pump.
#pragma once

#include <cstdint>

struct ClickPairing {
    std::int32_t firstClickIndex = 0;  // the press that may become the first half of a double click
    bool firstClickPending = false;    // firstClickIndex is valid
    std::int32_t lastMoveIndex = 0;
    bool lastMovePending = false;  // the newest mouse event is a move; nothing reads it
};
extern ClickPairing clickPairing;

// A left press whose double-click partner has come, between PairClick and RepairClicks.
inline constexpr std::int32_t FirstHalfFlags = -0x8002;

// To be told of every mouse event once it stands in the array. `doubleClickTime` in ms. The screen's size is handed
// over and not used: what counts is a distance of at most one pixel. `reset` begins a recording.
void PairClick(std::int32_t eventIndex, std::int32_t doubleClickTime, std::int32_t screenWidth,
               std::int32_t screenHeight, bool reset);
void ClearClickPairing();

// Compacts the array in place; eventCount is the number of events before and after.
void RepairClicks();
