#include "storage/input_file.h"

#include <algorithm>
#include <cstring>

#include "base/runtime_failure.h"
#include "storage/held_file.h"

namespace {

// Large enough that the calls do not count, small enough to stay in the processor's cache.
constexpr std::int64_t ReadBlockSize = 128LL * 1024;

[[noreturn]] void FailWithSystemWords(const std::string& path) {
    throw RuntimeFailure(FailureKind::File, "The file '" + path + "' cannot be read. " + platform::LastFileError());
}

}  // namespace

InputFile::InputFile(const std::string& filePath) : path(filePath), file(OpenOnceFree(filePath)) {
    if (file.IsOpen()) length = file.Length();
    if (!file.IsOpen() || length < 0) FailWithSystemWords(path);
    BeginBlock();
}

InputFile::InputFile(const std::string& filePath, std::int64_t from, std::int64_t partLength) : InputFile(filePath) {
    if (from < 0 || partLength < 0 || partLength > length - from) FailCut();
    if (!file.Seek(from)) FailWithSystemWords(path);
    length = partLength;
    BeginBlock();
}

InputFile::InputFile(const std::string& name, std::string_view bytes)
    : path(name), length(static_cast<std::int64_t>(bytes.size())), next(bytes.data()), end(next + bytes.size()) {}

void InputFile::BeginBlock() {
    unread = length;
    block.resize(static_cast<std::size_t>(std::min(length, ReadBlockSize)));
    next = end = block.data();
}

std::string_view InputFile::TakeString() {
    const std::size_t size = little_endian::Load<std::uint16_t>(Take(sizeof(std::uint16_t)));
    return {Take(size), size};
}

void InputFile::RequireRoom(std::int32_t count, std::size_t size) const {
    if (static_cast<std::int64_t>(count) * static_cast<std::int64_t>(size) > Rest()) FailCut();
}

// Moves what is left to the front of the block and fills it up. A piece that is larger than the block, and in the file,
// gets a larger block.
void InputFile::Refill(std::size_t size) {
    const auto left = static_cast<std::size_t>(end - next);
    if (static_cast<std::int64_t>(size - left) > unread) FailCut();
    if (left > 0) std::memmove(block.data(), next, left);
    if (size > block.size()) block.resize(size);
    const std::int64_t wanted = std::min(static_cast<std::int64_t>(block.size() - left), unread);
    const std::int64_t read = file.Read(block.data() + left, wanted);
    if (read < 0) FailWithSystemWords(path);
    if (read < wanted) FailCut();  // another program has just shortened it
    unread -= read;
    next = block.data();
    end = next + left + read;
}

void InputFile::FailCut() const {
    throw RuntimeFailure(FailureKind::File, "The file '" + path + "' is damaged: it ends too early.");
}
