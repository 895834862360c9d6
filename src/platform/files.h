// Files and folders. Paths are in the system code page. A failure is a value: false, an empty optional or a
// negative number, with the system's own words in LastFileError(). Nothing here pumps, retries or throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace platform {

// What an attempt to read a file finds. A file that is held is not missing: nothing may take its place without a word.
enum class FileState {
    Readable,
    Held,  // there, or perhaps there, but not to be opened just now: in use by another program, out of reach, not ours
    Missing,  // no file has this name; a folder may have it
};

// An open file, owned; closed by the destructor.
class File {
public:
    // For reading, shared with other readers and writers. Not open (see IsOpen) unless Found() is Readable.
    static File OpenForReading(const std::string& path);
    FileState Found() const { return found; }

    // A new file for writing, or an existing one emptied. Nobody else may write it meanwhile.
    static File Create(const std::string& path);

    File() = default;
    File(File&& other) noexcept : handle(std::exchange(other.handle, -1)), found(other.found) {}
    File& operator=(File&& other) noexcept {
        if (this != &other) {
            if (IsOpen()) Close();
            handle = std::exchange(other.handle, -1);
            found = other.found;
        }
        return *this;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() {
        if (IsOpen()) Close();
    }

    bool IsOpen() const { return handle != -1; }

    // Reads up to `size` bytes from the present position. Returns the bytes read, fewer only at the end of the
    // file; -1 on failure.
    std::int64_t Read(void* buffer, std::int64_t size);

    // True when all bytes were written.
    bool Write(const void* bytes, std::int64_t size);

    // Sets the position, in bytes from the start.
    bool Seek(std::int64_t position);

    // The file's length in bytes; -1 on failure.
    std::int64_t Length();

    // True when everything written has reached the disk (FlushFileBuffers).
    bool Flush();

    // Closing can fail where writing did not; false then. The file is closed in any case.
    bool Close();

private:
    std::int64_t handle = -1;
    FileState found = FileState::Missing;
};

// What the last failed file operation of this thread said, as a sentence without a path.
std::string LastFileError();

// What OpenForReading finds; nothing else tells whether a file is there.
inline FileState StateOf(const std::string& path) {
    return File::OpenForReading(path).Found();
}

// Whether a file has been written since: two stamps of it differ then. Both numbers are -1 when there is no such file,
// or none that can be asked just now.
struct FileStamp {
    std::int64_t length = -1;     // bytes
    std::int64_t lastWrite = -1;  // of the system's own clock for files
    bool operator==(const FileStamp&) const = default;
};
FileStamp StampOf(const std::string& path);

bool FolderExists(const std::string& path);

// Creates one level. False when it exists or the parent is missing.
bool MakeFolder(const std::string& path);

// Removes a file, read-only ones included.
bool RemoveFile(const std::string& path);

// Copies over whatever stands at `to`. When it returns true, the copy has reached the disk.
bool CopyFileOver(const std::string& from, const std::string& to);

enum class MoveResult {
    Done,
    Busy,  // another program holds one of the files just now; worth another try
    Failed,
};

// Puts `from` in the place of `to` in one step (MoveFileEx, replace existing, write through): at every moment `to`
// is either whole and old or whole and new.
MoveResult MoveFileOver(const std::string& from, const std::string& to);

// The names (no path) of the files in `folder` that end in `extension` (".tsj"; letter case ignored), in the order
// of their lower-cased names. Empty optional when the folder cannot be read.
std::optional<std::vector<std::string>> FilesIn(const std::string& folder, const std::string& extension);

}  // namespace platform
