// How records lie in a file, stated once for each record by its list of fields:
//
//     template <class Archive> void Fields(Archive& file, In<Archive, Point>& point) {
//         file.Int32("x", point.x);
//         file.Text("Name", point.Name, 40);
//     }
//
// The archives below walk such a list: one reads, one writes, one counts the bytes, one dumps text. Numbers are
// little-endian whatever the machine. Text of a fixed width is padded with blanks in the file and trimmed in memory.
// Readers and writers check no bounds: whoever makes one has the bytes of the whole record (RecordSize) at hand.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/text.h"

// The record as an archive takes it: a reader fills it, all others only look.
template <class Archive, class Record>
using In = std::conditional_t<Archive::Reads, Record, const Record>;

namespace little_endian {

// Where the machine has the file's order, numbers and arrays of them are copied as they lie.
inline constexpr bool Native = std::endian::native == std::endian::little;

template <class Integer>
Integer Load(const char* bytes) {
    std::make_unsigned_t<Integer> value = 0;
    if constexpr (Native) {
        std::memcpy(&value, bytes, sizeof value);
    } else {
        for (std::size_t i = sizeof value; i-- > 0;) {
            value = static_cast<decltype(value)>((value << 8) | static_cast<unsigned char>(bytes[i]));
        }
    }
    return static_cast<Integer>(value);
}

template <class Integer>
void Store(char* bytes, Integer integer) {
    auto value = static_cast<std::make_unsigned_t<Integer>>(integer);
    if constexpr (Native) {
        std::memcpy(bytes, &value, sizeof value);
    } else {
        for (std::size_t i = 0; i < sizeof value; ++i, value = static_cast<decltype(value)>(value >> 8)) {
            bytes[i] = static_cast<char>(value);
        }
    }
}

}  // namespace little_endian

// Skips the padding of a fixed field a block at a time; what is left is for TrimView, which looks at each byte. Most
// fields are mostly padding, and the job list reads a thousand files at once.
template <std::size_t Block>
std::string_view WithoutPaddingBlocks(std::string_view field) {
    static constexpr std::array<char, Block> zeros{};
    static constexpr std::array<char, Block> blanks = [] {
        std::array<char, Block> filled{};
        filled.fill(' ');
        return filled;
    }();
    const auto endsIn = [&](const std::array<char, Block>& padding) {
        return std::memcmp(field.data() + field.size() - Block, padding.data(), Block) == 0;
    };
    while (field.size() >= Block && (endsIn(blanks) || endsIn(zeros))) field.remove_suffix(Block);
    return field;
}

inline std::string_view WithoutPadding(std::string_view field) {
    return TrimView(WithoutPaddingBlocks<8>(WithoutPaddingBlocks<32>(WithoutPaddingBlocks<256>(field))));
}

class RecordReader {
public:
    static constexpr bool Reads = true;
    explicit RecordReader(const char* bytes) : cursor(bytes) {}

    void UInt8(const char*, std::uint8_t& value) { value = static_cast<std::uint8_t>(*cursor++); }
    void Int16(const char*, std::int16_t& value) { Number(value); }
    void UInt16(const char*, std::uint16_t& value) { Number(value); }
    void Int32(const char*, std::int32_t& value) { Number(value); }
    void UInt32(const char*, std::uint32_t& value) { Number(value); }

    // What the writer always writes the same says nothing.
    void Constant16(const char*, std::int16_t) { cursor += 2; }
    void Constant32(const char*, std::int32_t) { cursor += 4; }

    void Text(const char*, std::string& text, std::size_t width) {
        text = WithoutPadding({cursor, width});
        cursor += width;
    }

    template <std::size_t N>
    void Words(const char*, std::array<std::int32_t, N>& words) {
        if constexpr (little_endian::Native) {
            std::memcpy(words.data(), cursor, sizeof words);
            cursor += sizeof words;
        } else {
            for (std::int32_t& word : words) Number(word);
        }
    }

private:
    template <class Integer>
    void Number(Integer& value) {
        value = little_endian::Load<Integer>(cursor);
        cursor += sizeof value;
    }

    const char* cursor;
};

class RecordWriter {
public:
    static constexpr bool Reads = false;
    explicit RecordWriter(char* bytes) : cursor(bytes) {}

    void UInt8(const char*, std::uint8_t value) { Number(value); }
    void Int16(const char*, std::int16_t value) { Number(value); }
    void UInt16(const char*, std::uint16_t value) { Number(value); }
    void Int32(const char*, std::int32_t value) { Number(value); }
    void UInt32(const char*, std::uint32_t value) { Number(value); }
    void Constant16(const char*, std::int16_t value) { Number(value); }
    void Constant32(const char*, std::int32_t value) { Number(value); }

    // Text that is too long is cut, as by an assignment to a field of fixed length.
    void Text(const char*, const std::string& text, std::size_t width) {
        const std::size_t length = std::min(text.size(), width);
        std::memcpy(cursor, text.data(), length);
        std::memset(cursor + length, ' ', width - length);
        cursor += width;
    }

    template <std::size_t N>
    void Words(const char*, const std::array<std::int32_t, N>& words) {
        if constexpr (little_endian::Native) {
            std::memcpy(cursor, words.data(), sizeof words);
            cursor += sizeof words;
        } else {
            for (const std::int32_t word : words) Number(word);
        }
    }

private:
    template <class Integer>
    void Number(Integer value) {
        little_endian::Store(cursor, value);
        cursor += sizeof value;
    }

    char* cursor;
};

// Counts the bytes that a record takes in a file.
struct RecordMeter {
    static constexpr bool Reads = false;
    std::size_t size = 0;

    void UInt8(const char*, std::uint8_t) { size += 1; }
    void Int16(const char*, std::int16_t) { size += 2; }
    void UInt16(const char*, std::uint16_t) { size += 2; }
    void Int32(const char*, std::int32_t) { size += 4; }
    void UInt32(const char*, std::uint32_t) { size += 4; }
    void Constant16(const char*, std::int16_t) { size += 2; }
    void Constant32(const char*, std::int32_t) { size += 4; }
    void Text(const char*, const std::string&, std::size_t width) { size += width; }
    template <std::size_t N>
    void Words(const char*, const std::array<std::int32_t, N>&) {
        size += 4 * N;
    }
};

template <class Record>
std::size_t RecordSize() {
    static const std::size_t size = [] {
        RecordMeter meter;
        Fields(meter, Record{});
        return meter.size;
    }();
    return size;
}

// A record as lines "name = value", for people and for tests that compare.
class TextDump {
public:
    static constexpr bool Reads = false;
    std::string text;

    void UInt8(const char* name, std::uint8_t value) { Line(name, std::to_string(value)); }
    void Int16(const char* name, std::int16_t value) { Line(name, std::to_string(value)); }
    void UInt16(const char* name, std::uint16_t value) { Line(name, std::to_string(value)); }
    void Int32(const char* name, std::int32_t value) { Line(name, std::to_string(value)); }
    void UInt32(const char* name, std::uint32_t value) { Line(name, std::to_string(value)); }
    void Constant16(const char* name, std::int16_t value) { Int16(name, value); }
    void Constant32(const char* name, std::int32_t value) { Int32(name, value); }
    void Text(const char* name, const std::string& value, std::size_t) { Line(name, "\"" + value + "\""); }

    template <std::size_t N>
    void Words(const char* name, const std::array<std::int32_t, N>& words) {
        std::string list;
        for (const std::int32_t word : words) list += (list.empty() ? "" : " ") + std::to_string(word);
        Line(name, list);
    }

    template <class Record>
    void Add(const std::string& title, const Record& record) {
        text += title + "\n";
        Fields(*this, record);
    }

private:
    void Line(const char* name, const std::string& value) { text += "  " + std::string(name) + " = " + value + "\n"; }
};
