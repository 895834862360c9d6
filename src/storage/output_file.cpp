#include "storage/output_file.h"

#include <cstring>
#include <limits>

#include "base/runtime_failure.h"

namespace {

constexpr std::size_t WriteBlockSize = 128ULL * 1024;  // every record of today and every string fits

}  // namespace

OutputFile::OutputFile(const std::string& path) : file(path), block(WriteBlockSize) {
    next = block.data();
    end = next + block.size();
}

void OutputFile::WriteString(const std::string& text) {
    if (text.size() > std::numeric_limits<std::uint16_t>::max()) {
        throw RuntimeFailure(FailureKind::Range,
                             "A text of " + std::to_string(text.size()) + " characters is too long to be saved.");
    }
    little_endian::Store(Room(sizeof(std::uint16_t)), static_cast<std::uint16_t>(text.size()));
    if (!text.empty()) std::memcpy(Room(text.size()), text.data(), text.size());
}

void OutputFile::Commit() {
    Empty();
    file.Commit();
}

void OutputFile::MakeRoom(std::size_t size) {
    Empty();
    if (size <= block.size()) return;
    block.resize(size);
    next = block.data();
    end = next + size;
}

void OutputFile::Empty() {
    file.Write(block.data(), static_cast<std::size_t>(next - block.data()));
    next = block.data();
}
