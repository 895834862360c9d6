#include "whole_file.h"

#include <cstring>
#include <vector>

namespace {

struct Front {
    std::uint32_t size;
    std::uint32_t seed;
};

std::uint32_t Next(std::uint32_t& state) {
    state = state * 1664525U + 1013904223U;
    return state;
}

}  // namespace

std::string WholeFile(std::uint32_t seed, std::size_t size) {
    std::vector<std::uint32_t> words(size / sizeof(std::uint32_t) + 1);
    std::uint32_t state = seed;
    for (std::uint32_t& word : words) word = Next(state);
    const Front front{static_cast<std::uint32_t>(size), seed};
    std::string bytes(size, '\0');
    std::memcpy(bytes.data(), words.data(), size);
    std::memcpy(bytes.data(), &front, sizeof front);
    return bytes;
}

bool IsWhole(std::string_view bytes) {
    Front front{};
    if (bytes.size() < sizeof front) return false;
    std::memcpy(&front, bytes.data(), sizeof front);
    if (front.size < sizeof front || front.size > bytes.size()) return false;
    return bytes.substr(0, front.size) == WholeFile(front.seed, front.size);
}
