#include "platform/files.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "platform/clock.h"
#include "platform/simulated/files.h"
#include "platform/text.h"

namespace {

constexpr const char* NotFound = "The system cannot find the file specified.";
constexpr const char* PathNotFound = "The system cannot find the path specified.";
constexpr const char* AccessDenied = "Access is denied.";
constexpr const char* Sharing = "The process cannot access the file because it is being used by another process.";
constexpr const char* DiskFull = "There is not enough space on the disk.";
constexpr const char* Exists = "Cannot create a file when that file already exists.";
constexpr const char* DeviceError = "The request could not be performed because of an I/O device error.";
constexpr const char* BadHandle = "The handle is invalid.";

// The clock of the files: it moves with every write.
std::int64_t NextWrite() {
    static std::int64_t writes = 0;
    return ++writes;
}

// The bytes of a file live as long as its entry on the disk or an open handle does.
struct Content {
    std::string bytes;
    std::size_t flushed = 0;  // this many bytes from the start survive a power cut
    std::int64_t lastWrite = NextWrite();
};

struct OpenFile {
    std::string key;
    std::shared_ptr<Content> content;
    std::size_t position = 0;
    bool writing = false;
};

struct Disk {
    std::map<std::string, std::shared_ptr<Content>> files;  // by lower-cased path
    std::map<std::string, std::string> names;               // as first written, for listings
    std::set<std::string> folders;
    std::set<std::string> lostDrives;  // all others are there
    std::set<std::string> readOnlyFolders;
    std::map<std::string, std::int64_t> lockedUntil;
    std::set<std::string> lockedAgainstReaders;  // of those
    std::map<std::string, std::int64_t> bytesRead;
    std::map<std::int64_t, OpenFile> open;
    std::int64_t lastHandle = 0;
    std::optional<std::int64_t> freeSpace;
    std::int64_t operations = 0;
    std::int64_t faultAt = 0;  // number of an operation; 0 for none
    simulated::Fault fault = simulated::Fault::Failure;
    bool powerOff = false;
    std::string lastError;
};
Disk disk;

std::string KeyOf(const std::string& path) {
    std::string key = platform::LowerCase(path);
    if (key.ends_with('\\')) key.pop_back();
    return key;
}

std::string FolderOf(const std::string& key) {
    const auto backslash = key.rfind('\\');
    return backslash == std::string::npos ? std::string() : key.substr(0, backslash);
}

bool IsWithin(const std::string& key, const std::string& folder) {
    return key == folder || key.starts_with(folder + "\\");
}

bool Fail(const char* reason) {
    disk.lastError = reason;
    return false;
}

// Counts an operation. False when it is the one that fails, or when the power is gone.
bool Operate() {
    ++disk.operations;
    const bool strikes = disk.operations == disk.faultAt;
    if (strikes && disk.fault == simulated::Fault::PowerCut) disk.powerOff = true;
    return !strikes && !disk.powerOff ? true : Fail(DeviceError);
}

bool FolderStands(const std::string& key) {
    return key.empty() || disk.folders.contains(key) || (key.ends_with(':') && !disk.lostDrives.contains(key));
}

bool IsLocked(const std::string& key) {
    const auto lock = disk.lockedUntil.find(key);
    return lock != disk.lockedUntil.end() && platform::TickCount() < lock->second;
}

bool IsLockedAgainstReaders(const std::string& key) {
    return IsLocked(key) && disk.lockedAgainstReaders.contains(key);
}

bool IsHeld(const std::string& key, bool forWriting) {
    return std::any_of(disk.open.begin(), disk.open.end(), [&](const auto& entry) {
        return entry.second.key == key && (entry.second.writing || !forWriting);
    });
}

// Can an entry of this name be made, changed or removed?
bool FolderTakes(const std::string& key) {
    const std::string folder = FolderOf(key);
    if (!FolderStands(folder)) return Fail(PathNotFound);
    const bool readOnly = std::any_of(disk.readOnlyFolders.begin(), disk.readOnlyFolders.end(),
                                      [&](const std::string& entry) { return IsWithin(key, entry); });
    return readOnly ? Fail(AccessDenied) : true;
}

void GiveBack(std::size_t bytes) {
    if (disk.freeSpace) *disk.freeSpace += static_cast<std::int64_t>(bytes);
}

// The part of `growth` that the disk still has room for, taken off the free space.
std::size_t TakeSpace(std::size_t growth) {
    if (!disk.freeSpace) return growth;
    const std::size_t taken = std::min(growth, static_cast<std::size_t>(*disk.freeSpace));
    *disk.freeSpace -= static_cast<std::int64_t>(taken);
    return taken;
}

// Writes what fits. True when that was all.
bool WriteInto(Content& content, std::size_t position, const char* bytes, std::size_t size) {
    const std::size_t end = position + size;
    const std::size_t old = content.bytes.size();
    const std::size_t growth = end > old ? end - old : 0;
    const std::size_t room = TakeSpace(growth);
    const std::size_t kept = size - std::min(size, growth - room);
    content.flushed = std::min(content.flushed, position);
    content.lastWrite = NextWrite();
    if (position + kept > old) content.bytes.resize(position + kept);
    if (kept > 0) std::memcpy(content.bytes.data() + position, bytes, kept);
    return kept == size ? true : Fail(DiskFull);
}

std::int64_t NewHandle(const std::string& key, std::shared_ptr<Content> content, bool writing) {
    disk.open[++disk.lastHandle] = OpenFile{key, std::move(content), 0, writing};
    return disk.lastHandle;
}

void PutEntry(const std::string& path, std::shared_ptr<Content> content) {
    const std::string key = KeyOf(path);
    disk.files[key] = std::move(content);
    disk.names.try_emplace(key, path.substr(path.rfind('\\') + 1));
}

void DropEntry(const std::string& key) {
    const auto entry = disk.files.find(key);
    if (entry == disk.files.end()) return;
    GiveBack(entry->second->bytes.size());
    disk.files.erase(entry);
    disk.names.erase(key);
}

OpenFile* Opened(std::int64_t handle) {
    const auto entry = disk.open.find(handle);
    if (entry != disk.open.end()) return &entry->second;
    Fail(BadHandle);
    return nullptr;
}

bool MayReplace(const std::string& key) {
    if (!FolderTakes(key)) return false;
    if (disk.folders.contains(key)) return Fail(AccessDenied);
    return IsLocked(key) ? Fail(Sharing) : true;
}

}  // namespace

namespace platform {

File File::OpenForReading(const std::string& path) {
    File file;
    file.found = FileState::Held;  // which is also what a disk that fails leaves one with
    if (!Operate()) return file;
    const std::string key = KeyOf(path);
    const auto entry = disk.files.find(key);
    if (entry == disk.files.end()) {
        file.found = FileState::Missing;
        Fail(disk.folders.contains(key) ? AccessDenied : NotFound);
    } else if (IsLockedAgainstReaders(key)) {
        Fail(Sharing);
    } else {
        file.found = FileState::Readable;
        file.handle = NewHandle(key, entry->second, false);
    }
    return file;
}

File File::Create(const std::string& path) {
    File file;
    if (!Operate()) return file;
    const std::string key = KeyOf(path);
    if (!MayReplace(key)) return file;
    if (IsHeld(key, true)) {
        Fail(Sharing);
        return file;
    }
    if (!disk.files.contains(key)) PutEntry(path, std::make_shared<Content>());
    Content& content = *disk.files[key];
    GiveBack(content.bytes.size());
    content = {};
    file.handle = NewHandle(key, disk.files[key], true);
    return file;
}

std::int64_t File::Read(void* buffer, std::int64_t size) {
    OpenFile* const file = Opened(handle);
    if (!Operate() || file == nullptr) return -1;
    const std::size_t length = file->content->bytes.size();
    const std::size_t rest = length - std::min(length, file->position);
    const std::size_t count = std::min(rest, static_cast<std::size_t>(size));
    if (count > 0) std::memcpy(buffer, file->content->bytes.data() + file->position, count);
    file->position += count;
    disk.bytesRead[file->key] += static_cast<std::int64_t>(count);
    return static_cast<std::int64_t>(count);
}

bool File::Write(const void* bytes, std::int64_t size) {
    OpenFile* const file = Opened(handle);
    if (file == nullptr || !file->writing) return Fail(BadHandle);
    const bool poweredBefore = !disk.powerOff;
    const bool works = Operate();
    if (!works && !poweredBefore) return false;
    const auto count = static_cast<std::size_t>(works ? size : size / 2);
    const bool fits = WriteInto(*file->content, file->position, static_cast<const char*>(bytes), count);
    file->position += count;
    return works && fits;
}

bool File::Seek(std::int64_t position) {
    OpenFile* const file = Opened(handle);
    if (!Operate() || file == nullptr) return false;
    file->position = static_cast<std::size_t>(position);
    return true;
}

std::int64_t File::Length() {
    const OpenFile* const file = Opened(handle);
    if (!Operate() || file == nullptr) return -1;
    return static_cast<std::int64_t>(file->content->bytes.size());
}

bool File::Flush() {
    OpenFile* const file = Opened(handle);
    if (!Operate() || file == nullptr) return false;
    file->content->flushed = file->content->bytes.size();
    return true;
}

bool File::Close() {
    const bool works = Operate();
    disk.open.erase(std::exchange(handle, -1));
    return works;
}

std::string LastFileError() {
    return disk.lastError;
}

FileStamp StampOf(const std::string& path) {
    if (!Operate()) return {};
    const auto entry = disk.files.find(KeyOf(path));
    if (entry == disk.files.end()) return {};
    return {static_cast<std::int64_t>(entry->second->bytes.size()), entry->second->lastWrite};
}

bool FolderExists(const std::string& path) {
    if (!Operate()) return false;
    return FolderStands(KeyOf(path)) && !path.empty() ? true : Fail(PathNotFound);
}

bool MakeFolder(const std::string& path) {
    if (!Operate()) return false;
    const std::string key = KeyOf(path);
    if (!FolderTakes(key)) return false;
    if (FolderStands(key) || disk.files.contains(key)) return Fail(Exists);
    disk.folders.insert(key);
    return true;
}

bool RemoveFile(const std::string& path) {
    if (!Operate()) return false;
    const std::string key = KeyOf(path);
    if (!MayReplace(key)) return false;
    if (!disk.files.contains(key)) return Fail(NotFound);
    if (IsHeld(key, false)) return Fail(Sharing);
    DropEntry(key);
    return true;
}

bool CopyFileOver(const std::string& from, const std::string& to) {
    const bool poweredBefore = !disk.powerOff;
    const bool works = Operate();
    if (!works && !poweredBefore) return false;
    const auto source = disk.files.find(KeyOf(from));
    if (source == disk.files.end()) return Fail(NotFound);
    const std::string key = KeyOf(to);
    if (!MayReplace(key)) return false;
    if (IsHeld(key, false)) return Fail(Sharing);
    const std::shared_ptr<Content> original = source->second;
    auto copy = std::make_shared<Content>();
    DropEntry(key);
    PutEntry(to, copy);
    const std::size_t size = works ? original->bytes.size() : original->bytes.size() / 2;
    const bool copied = WriteInto(*copy, 0, original->bytes.data(), size) && works;
    if (copied) copy->flushed = size;
    return copied;
}

MoveResult MoveFileOver(const std::string& from, const std::string& to) {
    if (!Operate()) return MoveResult::Failed;
    const std::string source = KeyOf(from);
    const std::string target = KeyOf(to);
    if (IsLocked(source) || IsLocked(target) || IsHeld(source, false) || IsHeld(target, false)) {
        Fail(Sharing);
        return MoveResult::Busy;
    }
    const auto entry = disk.files.find(source);
    if (entry == disk.files.end()) Fail(NotFound);
    if (entry == disk.files.end() || !MayReplace(target) || !FolderTakes(source)) return MoveResult::Failed;
    const std::shared_ptr<Content> content = entry->second;
    disk.files.erase(entry);
    disk.names.erase(source);
    DropEntry(target);
    PutEntry(to, content);
    return MoveResult::Done;
}

std::optional<std::vector<std::string>> FilesIn(const std::string& folder, const std::string& extension) {
    const std::string key = KeyOf(folder);
    if (!Operate()) return std::nullopt;
    if (!FolderStands(key)) {
        Fail(PathNotFound);
        return std::nullopt;
    }
    std::vector<std::string> found;
    for (const auto& [path, name] : disk.names) {
        if (FolderOf(path) == key && path.ends_with(LowerCase(extension))) found.push_back(name);
    }
    return found;
}

}  // namespace platform

namespace simulated {

void PutFolder(const std::string& path) {
    for (std::string key = KeyOf(path); !FolderStands(key); key = FolderOf(key)) disk.folders.insert(key);
}

void PutFile(const std::string& path, std::string bytes) {
    PutFolder(FolderOf(KeyOf(path)));
    auto content = std::make_shared<Content>();
    content->bytes = std::move(bytes);
    content->flushed = content->bytes.size();
    PutEntry(path, std::move(content));
}

std::optional<std::string> FileBytes(const std::string& path) {
    const auto entry = disk.files.find(KeyOf(path));
    if (entry == disk.files.end()) return std::nullopt;
    return entry->second->bytes;
}

std::vector<std::string> AllFiles() {
    std::vector<std::string> paths;
    for (const auto& [path, content] : disk.files) paths.push_back(path);
    return paths;
}

void LosePath(const std::string& path) {
    const std::string key = KeyOf(path);
    const auto isLost = [&](const std::string& entry) { return IsWithin(entry, key); };
    for (const std::string& file : AllFiles()) {
        if (isLost(file)) DropEntry(file);
    }
    std::erase_if(disk.folders, isLost);
    if (key.ends_with(':')) disk.lostDrives.insert(key);
}

void SetFreeSpace(std::int64_t bytes) {
    disk.freeSpace = bytes;
}

void MakeReadOnly(const std::string& folder) {
    disk.readOnlyFolders.insert(KeyOf(folder));
}

void LockFile(const std::string& path, std::int64_t untilTick) {
    disk.lockedUntil[KeyOf(path)] = untilTick;
    disk.lockedAgainstReaders.erase(KeyOf(path));
}

void LockFileAgainstReaders(const std::string& path, std::int64_t untilTick) {
    LockFile(path, untilTick);
    disk.lockedAgainstReaders.insert(KeyOf(path));
}

void FailAtOperation(std::int64_t n, Fault fault) {
    disk.faultAt = disk.operations + n;
    disk.fault = fault;
}

std::int64_t FileOperations() {
    return disk.operations;
}

void RestartDisk() {
    for (auto& [path, content] : disk.files) {
        const std::size_t unflushed = content->bytes.size() - content->flushed;
        content->bytes.resize(content->flushed + unflushed / 2);
        content->flushed = content->bytes.size();
    }
    disk.open.clear();
    disk.lockedUntil.clear();
    disk.faultAt = 0;
    disk.powerOff = false;
}

std::int64_t BytesRead(const std::string& path) {
    const auto entry = disk.bytesRead.find(KeyOf(path));
    return entry == disk.bytesRead.end() ? 0 : entry->second;
}

int OpenFiles() {
    return static_cast<int>(disk.open.size());
}

}  // namespace simulated
