// The keystroke notation: plain characters stand for themselves, everything else is a token in braces, such as
// {ENTER}, {L_SHIFT DOWN} or {WHEEL UP}. Here are the names of keys, the tokens of a text, and the ways from key
// events to tokens and from a text to input records. A text is in the system code page; offsets count characters.
// Nothing is kept between calls. Which key a character stands for is the keyboard layout's affair, asked afresh by
// each call. ParseToken, and what parses with it, can show a box, which pumps; nothing else here does.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/input.h"

inline constexpr int WheelKey = 300;       // stands for the mouse wheel wherever a virtual key is meant
inline constexpr int KeyNameCount = 301;   // virtual keys, and the wheel
inline constexpr int KeyCodeUnknown = -1;  // no key has this name

// What a token does with its key. The same scale as the state of a key record, where 1 means extended down.
enum KeyAction : int { ActionNone = -1, ActionDown = 0, ActionPress = 1, ActionUp = 2 };

// Names without braces, by virtual key; empty where a key goes by its character or its number.
extern const std::array<std::string_view, KeyNameCount> KeyNames;

// One token of a text and where it stands. Nothing found: an empty text, and -1 throughout.
struct Token {
    std::string text;
    int index = -1;  // zero-based
    int start = -1;  // zero-based offset
    int length = -1;
};

// The number of tokens; -1 if a "{" is not closed.
int TokenCount(const std::string& text);

// The token at a zero-based index. Nothing is found past the end, or where an open "{" stands in the way.
Token TokenAt(const std::string& text, int index);

// The token that covers a character position; at the end of the text, the last one.
Token TokenUnder(const std::string& text, int position);

// What a token means. `vk` is -1 for an unknown key; both are -1 for an empty token. A word that is neither DOWN nor
// UP shows a box and leaves `action` as it was.
void ParseToken(const std::string& token, int& vk, int& action);

// The virtual key or WheelKey that a token without DOWN or UP names; KeyCodeUnknown for none.
int KeyCodeFromName(const std::string& token);

// The token of a press: a name or a number in braces, or one character. A range failure outside 0..300.
std::string KeyNameFromCode(int vk);

// The token that shows a key event of `keyState` (0 and 1 down, 2 and 3 up). A character key shows on its down alone;
// its up is "". A range failure for a key outside 0..300.
std::string EventToToken(int vk, int keyState);

// The shortest text of the same meaning: a down that its up follows becomes a press. Unknown tokens stay as they are,
// and so does a text with an open "{". A grid that is being painted cannot show boxes: there, a word that is neither
// DOWN nor UP is passed over without one.
enum class BadWords { Told, PassedOver };
std::string ReduceKeystrokes(const std::string& text, BadWords badWords = BadWords::Told);

// The text as one record for each token, with `KeyState` still an action, and a like array of extended-key flags.
// Returns the number of tokens; or 0 for an empty text, or minus the index of a bad token, with both arrays empty;
// `message` tells which. A range failure if a "{" is not closed.
int CompileKeystrokes(const std::string& text, std::vector<platform::InputRecord>& records, std::vector<bool>& extended,
                      std::string& message);

// Going back from the token `fromIndex`: whether the last token of this key was a down.
bool KeyIsHeld(const std::string& text, int fromIndex, int vk);
