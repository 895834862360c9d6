#include "storage/save_file.h"

#include <algorithm>
#include <vector>

#include "base/runtime_failure.h"
#include "platform/clock.h"
#include "storage/temporary_name.h"

namespace {

constexpr std::int64_t MaximumWaitMs = 2000;
// A reader that comes back again and again leaves only gaps of a fraction of a millisecond. Tries in quick succession
// meet one; pauses that grow would leave a single try for the second half of the wait.
constexpr std::int64_t PauseMs = 4;
constexpr int TriesInARow = 8;
constexpr std::int64_t CopyBlock = 128LL * 1024;

// The folder is named with either stroke; no file has one in its name.
std::string FolderOf(const std::string& path) {
    const std::size_t end = path.find_last_of("\\/");
    return end == std::string::npos ? "." : path.substr(0, end);
}

}  // namespace

SaveFile::SaveFile(const std::string& path)
    : target(path), temporary(NewTemporaryPath(FolderOf(path))), file(platform::File::Create(temporary)) {
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

void SaveFile::Commit(OldTail tail) {
    if (tail == OldTail::Stays) CopyOldTail();
    // The place may be taken only by bytes that are on the disk: else a power cut leaves a new file full of zeros.
    if (!file.Flush()) Fail();
    if (!file.Close()) Fail();
    TakePlace();
}

// A reader, a virus scanner or another save may hold the target for a moment. Waits a little; false when it has been
// held for too long, counted from the first refusal.
bool SaveFile::WaitForTarget() {
    const std::int64_t now = platform::TickCount();
    if (refusals == 0) givingUpAt = now + MaximumWaitMs;
    if (now >= givingUpAt) return false;
    const std::int64_t pause = ++refusals % TriesInARow == 0 ? PauseMs : 0;
    platform::Sleep(std::min(pause, givingUpAt - now));
    return true;
}

// Not open when there is no old file. One that cannot be opened just now is not taken for none: its tail would go.
platform::File SaveFile::OpenOld() {
    for (;;) {
        platform::File old = platform::File::OpenForReading(target);
        if (old.Found() != platform::FileState::Held) return old;
        if (!WaitForTarget()) Fail();
    }
}

void SaveFile::CopyOldTail() {
    platform::File old = OpenOld();
    if (!old.IsOpen()) return;
    const std::int64_t length = old.Length();
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
    refusals = 0;  // the target was free in between, and on a busy disk flushing alone can take longer than the wait
    platform::MoveResult result = platform::MoveFileOver(temporary, target);
    while (result == platform::MoveResult::Busy && WaitForTarget()) result = platform::MoveFileOver(temporary, target);
    if (result != platform::MoveResult::Done) Fail();
    committed = true;
}

void SaveFile::Fail() const {
    throw RuntimeFailure(FailureKind::File, "The file '" + target + "' cannot be saved. " + platform::LastFileError());
}
