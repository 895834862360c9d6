// A file that is read from front to back, in blocks. Every way in which it can fall short of what it promises is a
// file failure that names it: it cannot be opened (one that is held is waited for, see held_file.h), reading fails, it
// ends too early, or a count in it is larger than the rest of it can hold. That last one is found before anything is
// allocated.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "storage/archive.h"

class InputFile {
public:
    explicit InputFile(const std::string& filePath);

    // Of the file only `partLength` bytes from `from` on, as if they were all of it. A part that the file does not hold
    // whole is cut.
    InputFile(const std::string& filePath, std::int64_t from, std::int64_t partLength);

    // Bytes in memory, which must outlive it, as if they were a file of this name. They are not copied: what Take
    // returns stays valid.
    InputFile(const std::string& name, std::string_view bytes);

    std::int64_t Length() const { return length; }

    // The next `size` bytes, valid until the next call.
    const char* Take(std::size_t size);

    std::int32_t Count() { return little_endian::Load<std::int32_t>(Take(sizeof(std::int32_t))); }

    template <class Record>
    void Read(Record& record) {
        RecordReader reader(Take(RecordSize<Record>()));
        Fields(reader, record);
    }

    // `count` records. They are made in place: the memory of large arrays is touched only once.
    template <class Record>
    std::vector<Record> ReadArray(std::int32_t count) {
        const std::size_t size = RecordSize<Record>();
        RequireRoom(count, size);
        std::vector<Record> records;
        records.reserve(static_cast<std::size_t>(count));
        for (std::int32_t i = 0; i < count; ++i) {
            RecordReader reader(Take(size));
            Fields(reader, records.emplace_back());
        }
        return records;
    }

    // A 16-bit length and that many bytes.
    std::string ReadString() { return std::string(TakeString()); }
    std::string_view TakeString();  // valid until the next call

    // How many bytes have not been taken yet.
    std::int64_t Rest() const { return unread + (end - next); }

    // A file failure when the rest of the file is shorter than `count` items of at least `size` bytes.
    void RequireRoom(std::int32_t count, std::size_t size) const;

private:
    void BeginBlock();
    void Refill(std::size_t size);
    [[noreturn]] void FailCut() const;

    std::string path;
    platform::File file;
    std::int64_t length = 0;
    std::int64_t unread = 0;  // bytes of the file that are not in the block yet
    std::vector<char> block;
    const char* next = nullptr;
    const char* end = nullptr;
};

inline const char* InputFile::Take(std::size_t size) {
    if (static_cast<std::size_t>(end - next) < size) Refill(size);
    const char* const taken = next;
    next += size;
    return taken;
}
