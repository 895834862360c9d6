#include "code_pages/windows_1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr char32_t invalid = 0xFFFD;

// What the bytes 0x80 to 0x9F stand for. The five that the page leaves open stand for themselves, as on Windows.
constexpr std::array<char32_t, 32> upperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The nearest likenesses of U+0100 to U+017F, the letters of Central Europe and the Baltic.
constexpr std::string_view likenesses =
    "AaAaAaCcCcCcCcDd\xD0"
    "dEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi??JjKk?LlLlLl??LlNnNnNn???OoOoOo??RrRrRrSsSsSs??TtTtTtUuUuUuUuUuUuWwYy?ZzZz???";
static_assert(likenesses.size() == 0x80);

char32_t CodePoint(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x80 && byte <= 0x9F ? upperControls[byte - 0x80u] : byte;
}

char Likeness(char32_t code) {
    return code >= 0x100 && code <= 0x17F ? likenesses[code - 0x100] : '?';
}

char ByteOf(char32_t code) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) return static_cast<char>(code);
    const auto found = std::find(upperControls.begin(), upperControls.end(), code);
    if (found == upperControls.end()) return Likeness(code);
    return static_cast<char>(0x80 + (found - upperControls.begin()));
}

std::size_t FollowingBytes(unsigned char lead) {
    if (lead < 0x80) return 0;
    if (lead >= 0xC2 && lead <= 0xDF) return 1;
    if (lead >= 0xE0 && lead <= 0xEF) return 2;
    return 3;
}

char32_t LeadingBits(unsigned char lead, std::size_t following) {
    return following == 0 ? lead : lead & (0x3Fu >> following);
}

bool IsFollowing(char character) {
    return (static_cast<unsigned char>(character) & 0xC0) == 0x80;
}

// Surrogates, overlong forms and what lies beyond Unicode.
bool IsWellFormed(char32_t code, std::size_t following) {
    constexpr std::array<char32_t, 4> smallest = {0, 0x80, 0x800, 0x10000};
    return code >= smallest[following] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Takes one character off the front. Of a malformed sequence only the first byte is taken, as invalid.
char32_t TakeCharacter(std::string_view& utf8) {
    const auto lead = static_cast<unsigned char>(utf8.front());
    const std::size_t following = FollowingBytes(lead);
    const std::string_view tail = utf8.substr(1, following);
    char32_t code = LeadingBits(lead, following);
    for (const char character : tail) code = (code << 6) | (static_cast<unsigned char>(character) & 0x3Fu);
    const bool whole = tail.size() == following && std::all_of(tail.begin(), tail.end(), IsFollowing);
    const bool valid = whole && lead < 0xF8 && (lead < 0x80 || lead >= 0xC2) && IsWellFormed(code, following);
    utf8.remove_prefix(valid ? following + 1 : 1);
    return valid ? code : invalid;
}

// The code page has no character beyond three bytes of UTF-8.
void AppendUtf8(std::string& utf8, char32_t code) {
    const auto append = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
    if (code < 0x80) return append(code);
    if (code < 0x800) {
        append(0xC0 | (code >> 6));
    } else {
        append(0xE0 | (code >> 12));
        append(0x80 | ((code >> 6) & 0x3F));
    }
    append(0x80 | (code & 0x3F));
}

// 0xD7 and 0xF7 are the signs of multiplication and division; 0xDF, the sharp s, has no capital in the page.
constexpr char Lower(char character) {
    const auto byte = static_cast<unsigned char>(character);
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7)) {
        return static_cast<char>(byte + 0x20);
    }
    if (byte == 0x8A || byte == 0x8C || byte == 0x8E) return static_cast<char>(byte + 0x10);
    return byte == 0x9F ? static_cast<char>(0xFF) : character;
}

constexpr char Upper(char character) {
    const auto byte = static_cast<unsigned char>(character);
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7)) {
        return static_cast<char>(byte - 0x20);
    }
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 0x10);
    return byte == 0xFF ? static_cast<char>(0x9F) : character;
}

// By table: whole lists of names go through here before they are sorted.
template <char (*Map)(char)>
std::string Mapped(std::string_view text) {
    static constexpr std::array<char, 256> table = [] {
        std::array<char, 256> filled{};
        for (int byte = 0; byte < 256; ++byte) filled[static_cast<std::size_t>(byte)] = Map(static_cast<char>(byte));
        return filled;
    }();
    std::string mapped(text);
    for (char& character : mapped) character = table[static_cast<unsigned char>(character)];
    return mapped;
}

}  // namespace

namespace windows_1252 {

std::string FromUtf8(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) text += ByteOf(TakeCharacter(utf8));
    return text;
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    for (const char character : text) AppendUtf8(utf8, CodePoint(character));
    return utf8;
}

std::string LowerCase(std::string_view text) {
    return Mapped<Lower>(text);
}

std::string UpperCase(std::string_view text) {
    return Mapped<Upper>(text);
}

}  // namespace windows_1252
