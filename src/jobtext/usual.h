// What the text leaves out because the rest of it tells it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "jobs/job_records.h"

inline constexpr std::int64_t TextFormatVersion = 1;

// DurationMs as a writer would write it, from the time of the last event. No value where a writer would write none: at
// a speed of 0.
std::optional<std::int32_t> UsualDuration(const JobHeader& header, std::int32_t lastTime);

// A captured chain begins with its leaf.
std::int32_t UsualLeaf(const std::array<std::int32_t, WindowChain::MaximumLevels>& path, std::int32_t levels);
