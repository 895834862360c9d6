// The least that counts as a Windows program, to stand where a runner would: headers for 64 bits, and no sections.
#pragma once

#include <cstdint>
#include <string>

#include "storage/archive.h"

inline std::string LeastProgram() {
    constexpr std::size_t dosHeader = 64, coffHeader = 24, optionalHeader = 240;
    constexpr std::size_t size = dosHeader + coffHeader + optionalHeader;
    std::string bytes(size, '\0');
    bytes.replace(0, 2, "MZ");
    little_endian::Store<std::uint32_t>(bytes.data() + 0x3C, dosHeader);
    bytes.replace(dosHeader, 2, "PE");
    little_endian::Store<std::uint16_t>(bytes.data() + dosHeader + 20, optionalHeader);
    little_endian::Store<std::uint16_t>(bytes.data() + dosHeader + coffHeader, 0x20B);
    little_endian::Store<std::uint32_t>(bytes.data() + dosHeader + coffHeader + 60, size);
    return bytes;
}
