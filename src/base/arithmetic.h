// Rounding and range rules that several modules share.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "base/runtime_failure.h"

// To the nearest integer, halves to the even neighbour. An overflow failure outside int32.
inline std::int32_t RoundHalfEven(double value) {
    const double rounded = std::nearbyint(value);  // the default rounding mode is to nearest, ties to even
    if (!(rounded >= static_cast<double>(std::numeric_limits<std::int32_t>::min()) &&
          rounded <= static_cast<double>(std::numeric_limits<std::int32_t>::max()))) {
        throw RuntimeFailure(FailureKind::Overflow, "The number " + std::to_string(value) + " is too large.");
    }
    return static_cast<std::int32_t>(rounded);
}
