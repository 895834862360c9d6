// The files of the simulated desktop: a disk in memory, with the failures that a real one has. Paths are those of
// Windows: backslashes, letter case ignored. A test starts with an empty disk on which the folder of every path
// exists that PutFile or PutFolder has named. Not for use from several threads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace simulated {

// Puts a whole file on the disk, its folders included; what it holds counts as flushed.
void PutFile(const std::string& path, std::string bytes);
void PutFolder(const std::string& path);

// What the file holds, or no value when there is none.
std::optional<std::string> FileBytes(const std::string& path);

// The full paths of all files, lower-cased, in order.
std::vector<std::string> AllFiles();

// Takes a file, or a folder or drive with all that is in it, off the disk, as another program or an unplugged drive
// would. A drive is back when something is put on it.
void LosePath(const std::string& path);

// From now on files can grow by `bytes` in all. The write that does not fit keeps the part that does.
void SetFreeSpace(std::int64_t bytes);

// Nothing in the folder can be created, changed or removed; reading goes on.
void MakeReadOnly(const std::string& folder);

// Another program holds the file until platform::TickCount() reaches `untilTick`: it can be read, but not written,
// removed or replaced (MoveFileOver answers Busy).
inline constexpr std::int64_t ForEver = INT64_MAX;
void LockFile(const std::string& path, std::int64_t untilTick = ForEver);

// The same, and nobody can read it either (FileState::Held).
void LockFileAgainstReaders(const std::string& path, std::int64_t untilTick = ForEver);

// Every call of a function of platform/files.h is one operation, closing included. The failure strikes at the n-th
// one from now (from 1): it alone fails, a write keeping half of its bytes; or the power fails with it, and nothing
// works any more.
enum class Fault { Failure, PowerCut };
void FailAtOperation(std::int64_t n, Fault fault = Fault::Failure);

// Operations since the start of the process, those that failed included.
std::int64_t FileOperations();

// After a power cut: the disk as it is found then. Of every byte that was written but not flushed only half of the
// rest of its file is there; all handles are gone, and all failures are over.
void RestartDisk();

// Bytes read from files of this path since the start of the process.
std::int64_t BytesRead(const std::string& path);

// Files that are open now.
int OpenFiles();

}  // namespace simulated
