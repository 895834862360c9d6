#include "storage/record_output.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/runtime_failure.h"

namespace {

constexpr std::size_t MemoryBlockSize = 256ULL * 1024;

}  // namespace

void RecordOutput::WriteString(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint16_t>::max()) {
        throw RuntimeFailure(FailureKind::Range,
                             "A text of " + std::to_string(text.size()) + " characters is too long to be saved.");
    }
    little_endian::Store(Room(sizeof(std::uint16_t)), static_cast<std::uint16_t>(text.size()));
    if (!text.empty()) std::memcpy(Room(text.size()), text.data(), text.size());
}

void OutputBlocks::HandTo(const std::function<void(std::string_view block)>& sink) const {
    for (const Block& block : blocks) {
        sink({block.bytes.get(), &block == &blocks.back() ? UsedOfLast() : block.used});
    }
}

std::string OutputBlocks::Joined() const {
    std::string bytes;
    HandTo([&bytes](std::string_view block) { bytes += block; });
    return bytes;
}

void OutputBlocks::MakeRoom(std::size_t size) {
    if (!blocks.empty()) blocks.back().used = UsedOfLast();
    const std::size_t blockSize = std::max(size, MemoryBlockSize);
    blocks.push_back({std::make_unique_for_overwrite<char[]>(blockSize)});
    next = blocks.back().bytes.get();
    end = next + blockSize;
}
