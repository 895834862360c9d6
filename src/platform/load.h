// How busy the machine is.
#pragma once

#include <optional>

namespace platform {

// The processor's load in percent since the last call, 0..100. No value at the first call, or when the system does
// not tell.
std::optional<int> ProcessorLoad();

}  // namespace platform
