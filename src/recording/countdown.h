// The countdown that gives the user time to get ready for a recording.
#pragma once

#include <cstdint>
#include <vector>

// Counts from settings.countdown_period down to 1, a second each. It cannot be canceled: it sleeps, and pumps only
// once, before the first number.
void CountDown();

// ProvjeriBoju ("check the colour"): makes the digits black on a light screen and white on a dark one.
void ProvjeriBoju();

// True when the mean of these colours (0x00BBGGRR; 0xFFFFFFFF is passed over) is 128 or more. A screen that cannot be
// read counts as dark.
bool IsLight(const std::vector<std::uint32_t>& colours);
