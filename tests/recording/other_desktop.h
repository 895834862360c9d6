// A desktop that is not as it was: what a seed does to the windows before a replay and while it runs. The recorded
// windows are moved, resized, minimised, maximised, covered and restacked, open late or while others are at work;
// beside them stand windows of the same programs, with the same or a similar caption; and another program takes the
// foreground for a moment.
#pragma once

#include <cstdint>

// Builds the desktop and changes it at once; more comes while the clock runs.
void BuildOtherDesktop(std::uint32_t seed);
