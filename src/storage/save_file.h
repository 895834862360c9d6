// A save that never destroys what it replaces. The new bytes go to a temporary file beside the target, are flushed, and
// take the target's place in one step; at every moment the target is whole, the old one or the new one. When the old
// file is longer, its tail stays behind the new bytes, as if they had been written over it: counts keep readers from
// ever seeing it. What has no counts lets it go. Each save has a temporary file of its own name (temporary_name.h), so
// neither a leftover of a crash nor another process that saves the same file at the same moment is in the way.
//
// Every failure is a file failure that names the target, with the system's words; the old file is then untouched and
// the temporary file removed. Commit sleeps (without pumping) while another program holds the target, up to 2 s at a
// time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/files.h"

enum class OldTail { Stays, Goes };

class SaveFile {
public:
    explicit SaveFile(const std::string& path);
    SaveFile(const SaveFile&) = delete;
    SaveFile& operator=(const SaveFile&) = delete;
    ~SaveFile();  // without Commit: nothing has happened

    void Write(const void* bytes, std::size_t size);
    void Commit(OldTail tail = OldTail::Stays);

private:
    bool WaitForTarget();
    platform::File OpenOld();
    void CopyOldTail();
    void TakePlace();
    [[noreturn]] void Fail() const;

    std::string target;
    std::string temporary;
    platform::File file;
    std::int64_t written = 0;
    int refusals = 0;             // times that the target was held
    std::int64_t givingUpAt = 0;  // tick; from the first of them on
    bool committed = false;
};
