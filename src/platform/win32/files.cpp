#include "platform/files.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "win32/handles.h"

namespace platform {
namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

bool Noted(BOOL succeeded) {
    if (!succeeded) lastError = GetLastError();
    return succeeded != FALSE;
}

HANDLE ToHandle(std::int64_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

// INVALID_HANDLE_VALUE is the -1 of a file that is not open.
std::int64_t FromHandle(HANDLE handle) {
    Noted(handle != INVALID_HANDLE_VALUE);
    return reinterpret_cast<std::int64_t>(handle);
}

DWORD ChunkOf(std::int64_t size) {
    return static_cast<DWORD>(std::min<std::int64_t>(size, 1 << 30));
}

bool HasAttribute(const std::string& path, DWORD attribute) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

// Of the reasons why a file cannot be opened, those that say that there is none. Every other one leaves it open: in
// use, no right to it, a drive that is not ready, a server that does not answer.
FileState StateAfter(DWORD error, const std::string& path) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
        case ERROR_INVALID_DRIVE:
        case ERROR_FILENAME_EXCED_RANGE:
            return FileState::Missing;
        default:
            return HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY) ? FileState::Missing : FileState::Held;
    }
}

// Runs `change` again without the read-only attribute of `path`, if that is what stood in the way. The attribute
// comes back where the change fails all the same.
template <class Change>
bool DespiteReadOnly(const std::string& path, const Change& change) {
    if (Noted(change())) return true;
    if (lastError != ERROR_ACCESS_DENIED || !HasAttribute(path, FILE_ATTRIBUTE_READONLY)) return false;
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (!SetFileAttributesA(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY))) return false;
    if (Noted(change())) return true;
    SetFileAttributesA(path.c_str(), attributes);
    return false;
}

// "Access denied" is what Windows says of a target that is read-only, a folder, or in a place where we may not
// write, but also of one that a virus scanner or an indexer holds or that is just being deleted. The last two pass.
bool HeldForAMoment(const std::string& target) {
    const DWORD attributes = GetFileAttributesA(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError() == ERROR_ACCESS_DENIED;  // being deleted
    return (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) == 0;
}

bool FlushCopy(const std::string& path) {
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (!Noted(file != INVALID_HANDLE_VALUE)) return false;
    const bool flushed = Noted(FlushFileBuffers(file));
    CloseHandle(file);
    return flushed;
}

bool EndsIn(const std::string& name, const std::string& extension) {
    return name.size() >= extension.size() && LowerCase(name).ends_with(LowerCase(extension));
}

void SortByLowerCase(std::vector<std::string>& names) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(names.size());
    for (std::string& name : names) keyed.emplace_back(LowerCase(name), std::move(name));
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), names.begin(), [](auto& entry) { return std::move(entry.second); });
}

}  // namespace

File File::OpenForReading(const std::string& path) {
    File file;
    file.handle =
        FromHandle(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                               nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    file.found = file.IsOpen() ? FileState::Readable : StateAfter(lastError, path);
    return file;
}

// Not CREATE_ALWAYS, which refuses an existing file that is hidden.
File File::Create(const std::string& path) {
    File file;
    file.handle = FromHandle(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.IsOpen() && !Noted(SetEndOfFile(ToHandle(file.handle)))) file.Close();
    return file;
}

std::int64_t File::Read(void* buffer, std::int64_t size) {
    std::int64_t total = 0;
    while (total < size) {
        DWORD count = 0;
        char* const place = static_cast<char*>(buffer) + total;
        if (!Noted(ReadFile(ToHandle(handle), place, ChunkOf(size - total), &count, nullptr))) return -1;
        if (count == 0) break;
        total += count;
    }
    return total;
}

bool File::Write(const void* bytes, std::int64_t size) {
    std::int64_t total = 0;
    while (total < size) {
        DWORD count = 0;
        const char* const place = static_cast<const char*>(bytes) + total;
        if (!Noted(WriteFile(ToHandle(handle), place, ChunkOf(size - total), &count, nullptr))) return false;
        total += count;
    }
    return true;
}

bool File::Seek(std::int64_t position) {
    LARGE_INTEGER distance;
    distance.QuadPart = position;
    return Noted(SetFilePointerEx(ToHandle(handle), distance, nullptr, FILE_BEGIN));
}

std::int64_t File::Length() {
    LARGE_INTEGER length;
    return Noted(GetFileSizeEx(ToHandle(handle), &length)) ? length.QuadPart : -1;
}

bool File::Flush() {
    return Noted(FlushFileBuffers(ToHandle(handle)));
}

bool File::Close() {
    return Noted(CloseHandle(ToHandle(std::exchange(handle, -1))));
}

std::string LastFileError() {
    char text[512] = "";
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, lastError,
                                        0, text, sizeof text, nullptr);
    const std::string sentence(text, length);
    const std::size_t end = sentence.find_last_not_of(" \r\n");
    return end == std::string::npos ? "Error " + std::to_string(lastError) + "." : sentence.substr(0, end + 1);
}

FileStamp StampOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!Noted(GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data))) return {};
    const auto joined = [](DWORD high, DWORD low) {
        return static_cast<std::int64_t>(static_cast<std::uint64_t>(high) << 32 | low);
    };
    return {joined(data.nFileSizeHigh, data.nFileSizeLow),
            joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}

bool FolderExists(const std::string& path) {
    return HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}

bool MakeFolder(const std::string& path) {
    return Noted(CreateDirectoryA(path.c_str(), nullptr));
}

bool RemoveFile(const std::string& path) {
    return DespiteReadOnly(path, [&] { return DeleteFileA(path.c_str()); });
}

// A copy has the attributes of its original, and only a file that may be written can be flushed.
bool CopyFileOver(const std::string& from, const std::string& to) {
    if (!DespiteReadOnly(to, [&] { return CopyFileA(from.c_str(), to.c_str(), FALSE); })) return false;
    const DWORD attributes = GetFileAttributesA(to.c_str());
    SetFileAttributesA(to.c_str(), FILE_ATTRIBUTE_NORMAL);
    const bool flushed = FlushCopy(to);
    if (attributes != INVALID_FILE_ATTRIBUTES) SetFileAttributesA(to.c_str(), attributes);
    return flushed;
}

MoveResult MoveFileOver(const std::string& from, const std::string& to) {
    if (Noted(MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))) {
        return MoveResult::Done;
    }
    switch (lastError) {
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return MoveResult::Busy;
        case ERROR_ACCESS_DENIED:
            return HeldForAMoment(to) ? MoveResult::Busy : MoveResult::Failed;
        default:
            return MoveResult::Failed;
    }
}

// All names are asked for and the extension compared here: the system would match "*.tsj" against the short names
// too, and so find "job.tsj_old".
std::optional<std::vector<std::string>> FilesIn(const std::string& folder, const std::string& extension) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        Noted(FALSE);
        if (lastError == ERROR_FILE_NOT_FOUND) return std::vector<std::string>();  // an empty drive
        return {};
    }
    std::vector<std::string> names;
    do {
        const bool isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        if (isFile && EndsIn(found.cFileName, extension)) names.emplace_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    const bool complete = GetLastError() == ERROR_NO_MORE_FILES;
    Noted(complete);
    FindClose(search);
    if (!complete) return {};
    SortByLowerCase(names);
    return names;
}

}  // namespace platform
