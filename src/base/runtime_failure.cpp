#include "base/runtime_failure.h"

void ThrowMissing(const char* what, long long index, std::size_t count) {
    throw RuntimeFailure(FailureKind::Range, std::string(what) + " " + std::to_string(index) +
                                                 " does not exist (there are " + std::to_string(count) + ").");
}
