// Puts together the bytes of a file one field after the other, as the tables of docs/job_format.md have them. It knows
// nothing of the program's own writer, which is measured against it.
#pragma once

#include <cstdint>
#include <string>

class FileBytes {
public:
    FileBytes& Byte(unsigned value) {
        bytes += static_cast<char>(value & 0xFF);
        return *this;
    }
    FileBytes& Int16(int value) { return Byte(static_cast<unsigned>(value)).Byte(static_cast<unsigned>(value) >> 8); }
    FileBytes& Int32(std::int64_t value) {
        for (int shift = 0; shift < 32; shift += 8) Byte(static_cast<unsigned>((value >> shift) & 0xFF));
        return *this;
    }
    FileBytes& Words(int count, std::int32_t value) {
        for (int i = 0; i < count; ++i) Int32(value);
        return *this;
    }
    FileBytes& Text(const std::string& text, std::size_t width) {
        bytes += text + std::string(width - text.size(), ' ');
        return *this;
    }
    FileBytes& Raw(const std::string& text) {
        bytes += text;
        return *this;
    }

    const std::string& All() const { return bytes; }
    operator const std::string&() const { return bytes; }

private:
    std::string bytes;
};

// The file with the 32-bit number at `offset` replaced.
inline std::string WithInt32(std::string bytes, std::size_t offset, std::int64_t value) {
    return bytes.replace(offset, 4, FileBytes().Int32(value).All());
}
