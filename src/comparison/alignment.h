// Which elements of two sequences are the same, in order: as many as can be, where the sequences are alike. Memory
// grows with the lengths, time with the lengths and the number of differences; for sequences that have little in common
// it is bounded in another way, and the answer may then have fewer pairs than there could be.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

// By element of `a`: the element of `b` that it is paired with, or -1. Paired elements are equal, and both rise.
std::vector<std::int32_t> Align(std::span<const std::uint64_t> a, std::span<const std::uint64_t> b);
