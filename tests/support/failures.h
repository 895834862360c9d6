// How a call fails, in one line of a test.
#pragma once

#include <optional>

#include "base/runtime_failure.h"

// Nothing when the call ends well.
template <class Call>
std::optional<FailureKind> FailureOf(const Call& call) {
    try {
        call();
    } catch (const RuntimeFailure& failure) {
        return failure.Kind();
    }
    return std::nullopt;
}
