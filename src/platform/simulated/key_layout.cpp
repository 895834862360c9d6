// The US keyboard: scan codes of set 1 and characters, by virtual key.
#include "simulated/key_layout.h"

#include <array>
#include <cctype>
#include <cstdint>

#include "platform/input.h"

namespace simulated {

namespace {

struct Key {
    std::uint8_t virtualKey;
    std::uint8_t scanCode;
    bool extended = false;
    char plain = 0;
    char shifted = 0;
};

constexpr Key Keys[] = {
    // Control keys. Some of them have characters, as in the layout of Windows.
    {3, 70, true, 3, 3},
    {8, 14, false, 8, 8},
    {9, 15, false, 9, 9},
    {12, 76},
    {13, 28, false, 13, 13},
    {16, 42},
    {17, 29},
    {18, 56},
    {19, 69},
    {20, 58},
    {27, 1, false, 27, 27},
    {32, 57, false, ' ', ' '},
    {33, 73, true},
    {34, 81, true},
    {35, 79, true},
    {36, 71, true},
    {37, 75, true},
    {38, 72, true},
    {39, 77, true},
    {40, 80, true},
    {44, 84, true},
    {45, 82, true},
    {46, 83, true},
    {91, 91, true},
    {92, 92, true},
    {93, 93, true},
    {144, 69, true},
    {145, 70},
    {160, 42},
    {161, 54, true},  // low-level hooks see the extended flag on the right SHIFT
    {162, 29},
    {163, 29, true},
    {164, 56},
    {165, 56, true},
    // The digits and letters of the main block.
    {'0', 11, false, '0', ')'},
    {'1', 2, false, '1', '!'},
    {'2', 3, false, '2', '@'},
    {'3', 4, false, '3', '#'},
    {'4', 5, false, '4', '$'},
    {'5', 6, false, '5', '%'},
    {'6', 7, false, '6', '^'},
    {'7', 8, false, '7', '&'},
    {'8', 9, false, '8', '*'},
    {'9', 10, false, '9', '('},
    {'A', 30, false, 'a', 'A'},
    {'B', 48, false, 'b', 'B'},
    {'C', 46, false, 'c', 'C'},
    {'D', 32, false, 'd', 'D'},
    {'E', 18, false, 'e', 'E'},
    {'F', 33, false, 'f', 'F'},
    {'G', 34, false, 'g', 'G'},
    {'H', 35, false, 'h', 'H'},
    {'I', 23, false, 'i', 'I'},
    {'J', 36, false, 'j', 'J'},
    {'K', 37, false, 'k', 'K'},
    {'L', 38, false, 'l', 'L'},
    {'M', 50, false, 'm', 'M'},
    {'N', 49, false, 'n', 'N'},
    {'O', 24, false, 'o', 'O'},
    {'P', 25, false, 'p', 'P'},
    {'Q', 16, false, 'q', 'Q'},
    {'R', 19, false, 'r', 'R'},
    {'S', 31, false, 's', 'S'},
    {'T', 20, false, 't', 'T'},
    {'U', 22, false, 'u', 'U'},
    {'V', 47, false, 'v', 'V'},
    {'W', 17, false, 'w', 'W'},
    {'X', 45, false, 'x', 'X'},
    {'Y', 21, false, 'y', 'Y'},
    {'Z', 44, false, 'z', 'Z'},
    {186, 39, false, ';', ':'},
    {187, 13, false, '=', '+'},
    {188, 51, false, ',', '<'},
    {189, 12, false, '-', '_'},
    {190, 52, false, '.', '>'},
    {191, 53, false, '/', '?'},
    {192, 41, false, '`', '~'},
    {219, 26, false, '[', '{'},
    {220, 43, false, '\\', '|'},
    {221, 27, false, ']', '}'},
    {222, 40, false, '\'', '"'},
    {226, 86, false, '\\', '|'},
    // The numeric keypad.
    {96, 82, false, '0', '0'},
    {97, 79, false, '1', '1'},
    {98, 80, false, '2', '2'},
    {99, 81, false, '3', '3'},
    {100, 75, false, '4', '4'},
    {101, 76, false, '5', '5'},
    {102, 77, false, '6', '6'},
    {103, 71, false, '7', '7'},
    {104, 72, false, '8', '8'},
    {105, 73, false, '9', '9'},
    {106, 55, false, '*', '*'},
    {107, 78, false, '+', '+'},
    {109, 74, false, '-', '-'},
    {110, 83, false, '.', '.'},
    {111, 53, true, '/', '/'},
    // F1 to F24.
    {112, 59},
    {113, 60},
    {114, 61},
    {115, 62},
    {116, 63},
    {117, 64},
    {118, 65},
    {119, 66},
    {120, 67},
    {121, 68},
    {122, 87},
    {123, 88},
    {124, 100},
    {125, 101},
    {126, 102},
    {127, 103},
    {128, 104},
    {129, 105},
    {130, 106},
    {131, 107},
    {132, 108},
    {133, 109},
    {134, 110},
    {135, 118},
};

constexpr std::array<Key, 256> ByVirtualKey = [] {
    std::array<Key, 256> table{};
    for (const Key& key : Keys) table[key.virtualKey] = key;
    return table;
}();

const Key& KeyOf(int virtualKey) {
    const bool known = virtualKey >= 0 && virtualKey < static_cast<int>(ByVirtualKey.size());
    return ByVirtualKey[known ? static_cast<std::size_t>(virtualKey) : 0];
}

bool IsLetter(int virtualKey) {
    return virtualKey >= 'A' && virtualKey <= 'Z';
}

}  // namespace

char TypedCharacter(int virtualKey, bool shift, bool capsLock) {
    const Key& key = KeyOf(virtualKey);
    return shift != (capsLock && IsLetter(virtualKey)) ? key.shifted : key.plain;
}

bool IsExtendedKey(int virtualKey) {
    return KeyOf(virtualKey).extended;
}

std::optional<Stroke> StrokeFor(char character) {
    if (character == '\n') return Stroke{13, false};
    for (const Key& key : Keys) {
        if (key.plain == character) return Stroke{key.virtualKey, false};
        if (key.shifted == character) return Stroke{key.virtualKey, true};
    }
    return std::nullopt;
}

}  // namespace simulated

namespace platform {

int ScanCodeOf(int virtualKey) {
    return simulated::KeyOf(virtualKey).scanCode;
}

int CharacterOf(int virtualKey) {
    return std::toupper(static_cast<unsigned char>(simulated::KeyOf(virtualKey).plain));
}

}  // namespace platform
