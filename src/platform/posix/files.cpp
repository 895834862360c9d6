#include "posix/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include "platform/files.h"
#include "platform/text.h"

namespace {

std::string root;  // empty: paths are taken as they are

int OpenAt(const std::string& path, int flags) {
    return open(posix_files::RealPath(path).c_str(), flags | O_CLOEXEC, 0644);
}

int Descriptor(std::int64_t handle) {
    return static_cast<int>(handle);
}

bool Is(const std::string& path, mode_t type) {
    struct stat status {};
    return stat(posix_files::RealPath(path).c_str(), &status) == 0 && (status.st_mode & S_IFMT) == type;
}

}  // namespace

namespace posix_files {

void UseFolder(const std::string& folder) {
    root = folder;
}

std::string RealPath(const std::string& path) {
    std::string rest = path.substr(!root.empty() && path.size() >= 2 && path[1] == ':' ? 2 : 0);
    std::replace(rest.begin(), rest.end(), '\\', '/');
    if (root.empty()) return rest;
    return root + (rest.starts_with('/') ? "" : "/") + rest;
}

}  // namespace posix_files

namespace platform {

File File::OpenForReading(const std::string& path) {
    File file;
    file.handle = OpenAt(path, O_RDONLY);
    file.found = file.IsOpen() ? FileState::Readable : FileState::Missing;
    return file;
}

File File::Create(const std::string& path) {
    File file;
    file.handle = OpenAt(path, O_WRONLY | O_CREAT | O_TRUNC);
    return file;
}

std::int64_t File::Read(void* buffer, std::int64_t size) {
    std::int64_t total = 0;
    while (total < size) {
        const ssize_t part =
            read(Descriptor(handle), static_cast<char*>(buffer) + total, static_cast<std::size_t>(size - total));
        if (part < 0) return -1;
        if (part == 0) break;
        total += part;
    }
    return total;
}

bool File::Write(const void* bytes, std::int64_t size) {
    std::int64_t total = 0;
    while (total < size) {
        const ssize_t part =
            write(Descriptor(handle), static_cast<const char*>(bytes) + total, static_cast<std::size_t>(size - total));
        if (part < 0) return false;
        total += part;
    }
    return true;
}

bool File::Seek(std::int64_t position) {
    return lseek(Descriptor(handle), position, SEEK_SET) == position;
}

std::int64_t File::Length() {
    struct stat status {};
    return fstat(Descriptor(handle), &status) == 0 ? status.st_size : -1;
}

bool File::Flush() {
    return fsync(Descriptor(handle)) == 0;
}

bool File::Close() {
    return close(Descriptor(std::exchange(handle, -1))) == 0;
}

std::string LastFileError() {
    return std::strerror(errno);
}

FileStamp StampOf(const std::string& path) {
    struct stat status {};
    if (stat(posix_files::RealPath(path).c_str(), &status) != 0) return {};
    return {status.st_size, status.st_mtim.tv_sec * 1'000'000'000 + status.st_mtim.tv_nsec};
}

bool FolderExists(const std::string& path) {
    return Is(path, S_IFDIR);
}

bool MakeFolder(const std::string& path) {
    return mkdir(posix_files::RealPath(path).c_str(), 0755) == 0;
}

bool RemoveFile(const std::string& path) {
    return unlink(posix_files::RealPath(path).c_str()) == 0;
}

bool CopyFileOver(const std::string& from, const std::string& to) {
    std::error_code failure;
    return std::filesystem::copy_file(posix_files::RealPath(from), posix_files::RealPath(to),
                                      std::filesystem::copy_options::overwrite_existing, failure);
}

MoveResult MoveFileOver(const std::string& from, const std::string& to) {
    const int result = rename(posix_files::RealPath(from).c_str(), posix_files::RealPath(to).c_str());
    return result == 0 ? MoveResult::Done : MoveResult::Failed;
}

// The bare calls of the system: what is measured is the program, and not this stand-in.
std::optional<std::vector<std::string>> FilesIn(const std::string& folder, const std::string& extension) {
    DIR* const entries = opendir(posix_files::RealPath(folder).c_str());
    if (entries == nullptr) return std::nullopt;
    const std::string ending = LowerCase(extension);
    std::vector<std::pair<std::string, std::string>> found;  // lower-cased once, not at every comparison
    while (const dirent* const entry = readdir(entries)) {
        std::string lower = LowerCase(entry->d_name);
        if (lower.ends_with(ending)) found.emplace_back(std::move(lower), entry->d_name);
    }
    closedir(entries);
    std::vector<std::pair<std::string, std::string>*> sorted;  // a pointer is moved in less time than two texts
    sorted.reserve(found.size());
    for (auto& file : found) sorted.push_back(&file);
    std::sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) { return *a < *b; });
    std::vector<std::string> names;
    names.reserve(sorted.size());
    for (auto* file : sorted) names.push_back(std::move(file->second));
    return names;
}

}  // namespace platform
