// Files that show whether they are whole: a size and a seed stand in front, and every byte behind follows from the
// seed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

std::string WholeFile(std::uint32_t seed, std::size_t size);

// False for a file that mixes two, or lacks a part. The tail of a longer predecessor may follow.
bool IsWhole(std::string_view bytes);
