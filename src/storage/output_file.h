// The counterpart of InputFile: a file that is written from front to back, in blocks, by a crash-safe save (see
// save_file.h for what a failure leaves behind). Nothing is at its place before Commit.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "storage/archive.h"
#include "storage/save_file.h"

class OutputFile {
public:
    explicit OutputFile(const std::string& path);

    // Room for the next `size` bytes, to be filled before the next call.
    char* Room(std::size_t size);

    void WriteCount(std::size_t count) {
        little_endian::Store(Room(sizeof(std::int32_t)), static_cast<std::int32_t>(count));
    }

    template <class Record>
    void Write(const Record& record) {
        RecordWriter writer(Room(RecordSize<Record>()));
        Fields(writer, record);
    }

    template <class Record>
    void WriteArray(const std::vector<Record>& records) {
        const std::size_t size = RecordSize<Record>();
        for (const Record& record : records) {
            RecordWriter writer(Room(size));
            Fields(writer, record);
        }
    }

    // A 16-bit length and the bytes. A range failure for more than 65535.
    void WriteString(const std::string& text);

    void Commit();

private:
    void MakeRoom(std::size_t size);
    void Empty();

    SaveFile file;
    std::vector<char> block;
    char* next = nullptr;
    char* end = nullptr;
};

inline char* OutputFile::Room(std::size_t size) {
    if (static_cast<std::size_t>(end - next) < size) MakeRoom(size);
    char* const room = next;
    next += size;
    return room;
}
