// The on-screen keyboard as data: a full board with the tall Enter key, its keys by virtual-key code. Which character a
// key has, and at which place it stands, is that of the active keyboard layout; what the other keys are called, that of
// the language. Nothing here pumps.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "keystrokes/notation.h"
#include "platform/types.h"

// Places are in quarters of a letter key.
inline constexpr platform::Size KeyboardSize = {90, 26};

// A key below 100 that is drawn in several pieces has the others at its code plus this.
inline constexpr int SecondPart = 300;
inline constexpr std::size_t ButtonIndexCount = 600;

// 0xBBGGRR.
struct KeyColours {
    std::uint32_t back = 0xE0E0E0;
    std::uint32_t text = 0;
    friend bool operator==(const KeyColours&, const KeyColours&) = default;
};
inline constexpr KeyColours KeyAtRest{};
inline constexpr KeyColours KeyUnderMouse{7816243, 0xFFFFFF};
inline constexpr std::uint32_t KeyPressedBack =
    0xFFFFFF;  // of a character key that the user holds on the real keyboard

struct KeyPart {
    int index = 0;         // virtual-key code, or that plus SecondPart
    platform::Rect place;  // pieces of one key may overlap
    std::string caption;   // empty for an arrow, which is drawn, and for what has it on another piece
};

// `button`, the keys of the board.
struct OnscreenKeyboard {
    std::vector<KeyPart> button;
    std::array<KeyColours, ButtonIndexCount> colours;  // by index
};
extern OnscreenKeyboard onscreenKeyboard;

// NacrtajTipkovnicu ("draw the keyboard"): all keys at rest, with the characters of the active layout and the names of
// the language in force.
void NacrtajTipkovnicu();

// Whether the board has a button of this index.
bool ElementExists(int index);

// PromjeniTipku ("change the key"): another background for a key that shows a character, and for its second part. Other
// keys stay as they are.
void PromjeniTipku(int index, std::uint32_t colour);

// All pieces of a key in these colours; all keys as they are at first.
void ColourKey(int key, const KeyColours& colours);
void AllKeysAtRest();

// The key at a point of the board, 0 for none.
int KeyAt(platform::Point place);

// By virtual key: what the tokens of a text from its start to a position, where one ends, leave down. As KeyIsHeld
// tells, but for all keys at once, and without its alarm.
using KeysDown = std::array<bool, KeyNameCount>;
KeysDown KeysHeldAt(const std::string& text, int position);
