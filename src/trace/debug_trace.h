// DebugTrace stands at the points of the code that are worth knowing. It throws its text away and pumps, and that
// pump is what keeps the program alive during a run.
#pragma once

#include "platform/pump.h"

// The text is a literal: nothing may be built for it.
inline void DebugTrace(const char*) {
    platform::Pump();
}
