#include "storage/save_file.h"

#include <algorithm>
#include <random>
#include <vector>

#include "base/runtime_failure.h"
#include "platform/clock.h"

namespace {

constexpr std::int64_t MaximumWaitMs = 2000;
constexpr std::int64_t CopyBlock = 128 * 1024;

// "~", seven random characters, ".tmp": as short as the shortest names that Windows leaves room for in every folder.
std::string TemporaryBeside(const std::string& target) {
    constexpr std::string_view digits = "0123456789abcdefghijklmnopqrstuv";
    std::random_device random;
    std::string name = "~";
    for (int i = 0; i < 7; ++i) name += digits[random() % digits.size()];
    return target.substr(0, target.rfind('\\') + 1) + name + ".tmp";
}

// A reader, a virus scanner or another save may hold the target for a moment.
platform::MoveResult MoveWithPatience(const std::string& from, const std::string& to) {
    std::int64_t waited = 0;
    for (std::int64_t pause = 1;; pause *= 2) {
        const platform::MoveResult result = platform::MoveFileOver(from, to);
        if (result != platform::MoveResult::Busy || waited >= MaximumWaitMs) return result;
        pause = std::min(pause, MaximumWaitMs - waited);
        platform::Sleep(pause);
        waited += pause;
    }
}

}  // namespace

SaveFile::SaveFile(const std::string& path)
    : target(path), temporary(TemporaryBeside(path)), file(platform::File::Create(temporary)) {
    if (!file.IsOpen()) Fail();
}

SaveFile::~SaveFile() {
    if (committed) return;
    if (file.IsOpen()) file.Close();
    platform::RemoveFile(temporary);
}

void SaveFile::Write(const void* bytes, std::size_t size) {
    if (!file.Write(bytes, static_cast<std::int64_t>(size))) Fail();
    written += static_cast<std::int64_t>(size);
}

void SaveFile::Commit() {
    CopyOldTail();
    // The place may be taken only by bytes that are on the disk: else a power cut leaves a new file full of zeros.
    if (!file.Flush()) Fail();
    if (!file.Close()) Fail();
    TakePlace();
}

void SaveFile::CopyOldTail() {
    platform::File old = platform::File::OpenForReading(target);
    if (!old.IsOpen() && !platform::FileExists(target)) return;
    const std::int64_t length = old.IsOpen() ? old.Length() : -1;
    if (length < 0) Fail();
    if (length <= written) return;
    if (!old.Seek(written)) Fail();
    std::vector<char> block(CopyBlock);
    for (;;) {
        const std::int64_t read = old.Read(block.data(), CopyBlock);
        if (read < 0) Fail();
        if (read == 0) return;
        Write(block.data(), static_cast<std::size_t>(read));
    }
}

void SaveFile::TakePlace() {
    if (MoveWithPatience(temporary, target) != platform::MoveResult::Done) Fail();
    committed = true;
}

void SaveFile::Fail() const {
    throw RuntimeFailure(FailureKind::File, "The file '" + target + "' cannot be saved. " + platform::LastFileError());
}
