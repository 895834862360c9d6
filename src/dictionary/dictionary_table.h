// The sentences of the user interface as they stand in the source, in UTF-8. Only the dictionary converts and
// searches them; tests read them whole. There are two tables of one kind, with rows in no order of their own.
#pragma once

#include <array>
#include <cstddef>
#include <span>

// A row is one sentence. Markers (%1, %2) stand in all four columns.
struct DictionaryRow {
    const char* english;  // the key
    const char* german;
    const char* french;
    const char* spanish;
};

// One of the words that describe events, by language number less one: English, German, Spanish, French.
using ActionWordRow = std::array<const char*, 4>;

inline constexpr std::size_t DictionaryCapacity = 330;
inline constexpr std::size_t ActionWordCount = 17;

// The table, which is searched first.
std::span<const DictionaryRow> DictionaryRows();

// What the program has come to need beyond it, in any number.
std::span<const DictionaryRow> OwnRows();

// In the order of the members of ActionWords.
const std::array<ActionWordRow, ActionWordCount>& ActionWordRows();
