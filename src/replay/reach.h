// Whether what a run is about to send can arrive at all. Windows keeps input from programs of a higher integrity level
// (those that run as administrator, when this one does not), and from a desktop that is locked or asks a question of
// its own, and reports success all the same. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>

#include "platform/types.h"

inline constexpr std::int32_t WindowOutOfReach = -7;   // a failed check of one action, like a window that is not found
inline constexpr std::int32_t DesktopOutOfReach = -8;  // the end of the run

// What gets the keys now (the window in front), and what gets the buttons of the mouse (the one under the cursor).
enum class Receiver { Keys, Mouse };
platform::WindowHandle WindowOf(Receiver receiver);

// 1, or WindowOutOfReach with a `reason` that says what to do.
std::int32_t CheckReach(platform::WindowHandle window, std::string& reason);

// Cheap enough for every event: the system is asked at most every 10 ms.
bool DesktopReachable();

std::string DesktopReason();  // what to tell when it is not

// Both in one: 1, or DesktopOutOfReach with its `reason`.
std::int32_t CheckDesktop(std::string& reason);
