// What files are written to from front to back, record after record: a file (output_file.h), or bytes in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "storage/archive.h"

class RecordOutput {
public:
    RecordOutput() = default;
    RecordOutput(const RecordOutput&) = delete;
    RecordOutput& operator=(const RecordOutput&) = delete;
    virtual ~RecordOutput() = default;

    // Room for the next `size` bytes, to be filled before the next call.
    char* Room(std::size_t size) {
        if (static_cast<std::size_t>(end - next) < size) MakeRoom(size);
        char* const room = next;
        next += size;
        return room;
    }

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
    void WriteString(std::string_view text);

protected:
    // Puts `next` in front of at least `size` free bytes, and `end` behind them.
    virtual void MakeRoom(std::size_t size) = 0;

    char* next = nullptr;
    char* end = nullptr;
};

// In memory, in blocks that never move.
class OutputBlocks : public RecordOutput {
public:
    // Hands over all that was written, in order.
    void HandTo(const std::function<void(std::string_view block)>& sink) const;
    std::string Joined() const;

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t used = 0;  // of all but the last block, which is in use
    };

    void MakeRoom(std::size_t size) override;
    std::size_t UsedOfLast() const { return static_cast<std::size_t>(next - blocks.back().bytes.get()); }

    std::vector<Block> blocks;
};
