#include "storage/record_output.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "base/runtime_failure.h"

void RecordOutput::WriteString(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint16_t>::max()) {
        throw RuntimeFailure(FailureKind::Range,
                             "A text of " + std::to_string(text.size()) + " characters is too long to be saved.");
    }
    little_endian::Store(Room(sizeof(std::uint16_t)), static_cast<std::uint16_t>(text.size()));
    if (!text.empty()) std::memcpy(Room(text.size()), text.data(), text.size());
}

std::string OutputBytes::Take() {
    bytes.resize(Written());
    next = end = nullptr;
    return std::exchange(bytes, {});
}

void OutputBytes::MakeRoom(std::size_t size) {
    const std::size_t written = Written();
    bytes.resize(std::max(2 * bytes.size(), written + size));
    next = bytes.data() + written;
    end = bytes.data() + bytes.size();
}
