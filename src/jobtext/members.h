// The members of the objects in the text: their names, what they may hold, and the values that were read.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class MemberKind { Number, Text, List, Bytes, Array };

struct MemberRule {
    std::string_view name;
    MemberKind kind = MemberKind::Number;
    std::int64_t least = std::numeric_limits<std::int32_t>::min();
    std::int64_t most = std::numeric_limits<std::int32_t>::max();
    std::optional<std::int64_t> (*find)(std::string_view word) = nullptr;  // words that stand for numbers
    std::size_t width = 0;  // bytes of a text, or the most numbers of a list
};

using MemberRules = std::span<const MemberRule>;

inline constexpr std::size_t MostMembers = 24;

constexpr std::uint32_t MemberBit(std::size_t member) {
    return std::uint32_t{1} << member;
}

constexpr std::uint32_t MemberBits(std::initializer_list<std::size_t> members) {
    std::uint32_t bits = 0;
    for (const std::size_t member : members) bits |= MemberBit(member);
    return bits;
}

// By the place of the member among the rules. Only what was given holds a value.
struct MemberValues {
    std::uint32_t given = 0;
    std::array<std::int64_t, MostMembers> numbers{};
    std::array<std::string, MostMembers> texts;  // in the code page; runs of bytes as they stand
    std::array<std::vector<std::int64_t>, MostMembers> lists;

    bool Has(std::size_t member) const { return (given & MemberBit(member)) != 0; }
    std::int64_t Number(std::size_t member, std::int64_t usual) const { return Has(member) ? numbers[member] : usual; }
    std::int32_t Int32(std::size_t member, std::int32_t usual = 0) const {
        return static_cast<std::int32_t>(Number(member, usual));
    }
    std::uint32_t UInt32(std::size_t member) const { return static_cast<std::uint32_t>(Number(member, 0)); }
    std::string Text(std::size_t member) const { return Has(member) ? texts[member] : std::string(); }
};
