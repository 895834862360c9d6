#include "base/runtime_failure.h"
#include "base/text.h"
#include "keystrokes/notation.h"
#include "keystrokes/parsing.h"
#include "platform/input.h"
#include "platform/text.h"

namespace {

constexpr std::array<std::string_view, KeyNameCount> MakeKeyNames() {
    std::array<std::string_view, KeyNameCount> names{};
    names[8] = "BACKSPACE";
    names[9] = "TAB";
    names[13] = "ENTER";
    names[20] = "CAPS_LOCK";
    names[27] = "ESC";
    names[33] = "PAGE_UP";
    names[34] = "PAGE_DOWN";
    names[35] = "END";
    names[36] = "HOME";
    names[37] = "LEFT_ARROW";
    names[38] = "UP_ARROW";
    names[39] = "RIGHT_ARROW";
    names[40] = "DOWN_ARROW";
    names[44] = "PRINT_SCREEN";
    names[46] = "DEL";
    names[91] = "L_WINKEY";
    names[92] = "R_WINKEY";
    names[93] = "MENUKEY";
    names[112] = "F1";
    names[113] = "F2";
    names[114] = "F3";
    names[115] = "F4";
    names[116] = "F5";
    names[117] = "F6";
    names[118] = "F7";
    names[119] = "F8";
    names[120] = "F9";
    names[121] = "F10";
    names[122] = "F11";
    names[123] = "F12";
    names[144] = "NUM_LOCK";
    names[160] = "L_SHIFT";
    names[161] = "R_SHIFT";
    names[162] = "L_CTRL";
    names[163] = "R_CTRL";
    names[164] = "ALT";
    names[165] = "ALT";
    names[WheelKey] = "WHEEL";
    return names;
}

// The key's own character, 0 for none. A dead key tells its character with the top bit set, and counts like any
// other. A key whose character is "{" goes by its number: its character would open a token that nothing closes.
char CharacterOfKey(int vk) {
    const auto character = static_cast<char>(platform::CharacterOf(vk) & 0xFF);
    return character == '{' ? '\0' : character;
}

// These names belong to several keys (a digit to the numeric pad as well), of which the lowest is the main one. All
// others take the highest. Letter case counts here: stored jobs depend on it.
bool LowestCodeWanted(const std::string& token) {
    return token == "{ALT}" ||
           (token.size() == 1 && std::string_view("0123456789cd").find(token[0]) != std::string_view::npos);
}

// A token that names no key as it stands, in the letter case and the braces of the names.
std::string AsNamesAreWritten(std::string token) {
    if (token.size() >= 3 && token[0] != '{') token = "{" + token + "}";
    return token == platform::LowerCase(token) ? platform::UpperCase(token) : token;
}

// Key by key through the names, not through the table alone, so that characters work through the keyboard layout.
int WalkNames(const std::string& token, bool lowestWanted, KeyNameMemory& names) {
    const std::string lowerCase = platform::LowerCase(token);
    int found = KeyCodeUnknown;
    for (int vk = 255; vk >= 0; --vk) {
        const std::string& name = names.NameOf(vk);
        if (name != token && name != lowerCase) continue;
        found = vk;
        if (!lowestWanted) break;
    }
    return found;
}

bool IsBracedCharacter(const std::string& token) {
    return token.size() == 3 && token.front() == '{' && token.back() == '}';
}

int LookUp(const std::string& token, KeyNameMemory& names) {
    if (token == "{SHIFT}") return names.CodeOf("{R_SHIFT}");
    if (token == "{CTRL}") return names.CodeOf("{R_CTRL}");
    // Only with its braces: the bare word is looked up like a key's name, and no key has it.
    if (platform::LowerCase(token) == "{wheel}") return WheelKey;
    const std::string name = AsNamesAreWritten(token);
    const int found = WalkNames(name, LowestCodeWanted(token), names);
    if (found != KeyCodeUnknown || !IsBracedCharacter(name)) return found;
    // {a} is the key "a". A number comes first: {5} is the key with the code 5, if that has no other name.
    return names.CodeOf(platform::LowerCase(name.substr(1, 1)));
}

}  // namespace

const std::array<std::string_view, KeyNameCount> KeyNames = MakeKeyNames();

std::string KeyNameFromCode(int vk) {
    const std::string_view name = CheckedAt(KeyNames, vk, "Key code");
    if (!TrimView(name).empty()) return "{" + std::string(name) + "}";
    const char character = CharacterOfKey(vk);
    if (character == '\0') return "{" + std::to_string(vk) + "}";
    return platform::LowerCase(std::string_view(&character, 1));
}

const std::string& KeyNameMemory::NameOf(int vk) {
    std::string& name = CheckedAt(names, vk, "Key code");
    if (name.empty()) name = KeyNameFromCode(vk);
    return name;
}

int KeyNameMemory::CodeOf(const std::string& token) {
    const auto known = codes.find(token);
    if (known != codes.end()) return known->second;
    const int code = LookUp(token, *this);
    codes.emplace(token, code);
    return code;
}

int KeyCodeFromName(const std::string& token) {
    KeyNameMemory names;
    return names.CodeOf(token);
}
