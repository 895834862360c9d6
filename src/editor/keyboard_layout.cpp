#include "editor/keyboard_layout.h"

#include <algorithm>
#include <map>
#include <span>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "editor/keystroke_box.h"
#include "keystrokes/parsing.h"
#include "platform/input.h"

OnscreenKeyboard onscreenKeyboard;

namespace {

// What stands in a row of the board, from left to right.
struct Cell {
    enum Kind { Gap, Named, Placed } kind;  // nothing; a key by its code; whatever key the layout has at a scan code
    int value;
    int width;
    int height;
};

constexpr int KeySide = 4;

constexpr Cell Space(int width) {
    return {Cell::Gap, 0, width, 0};
}

constexpr Cell Key(int code, int width = KeySide, int height = KeySide) {
    return {Cell::Named, code, width, height};
}

constexpr Cell At(int scanCode) {
    return {Cell::Placed, scanCode, KeySide, KeySide};
}

constexpr Cell FunctionRow[] = {
    Key(27),  Space(4), Key(112), Key(113), Key(114), Key(115), Space(2), Key(116), Key(117), Key(118),
    Key(119), Space(2), Key(120), Key(121), Key(122), Key(123), Space(1), Key(44),  Key(145), Key(19),
};
constexpr Cell DigitRow[] = {
    At(0x29), At(0x02), At(0x03), At(0x04), At(0x05), At(0x06),  At(0x07), At(0x08),
    At(0x09), At(0x0A), At(0x0B), At(0x0C), At(0x0D), Key(8, 8), Space(1), Key(45),
    Key(36),  Key(33),  Space(1), Key(144), Key(111), Key(106),  Key(109),
};
// Of the tall Enter key, the piece that reaches to the left comes before the rest.
constexpr Cell UpperRow[] = {
    Key(9, 6), At(0x10),       At(0x11), At(0x12), At(0x13), At(0x14), At(0x15),
    At(0x16),  At(0x17),       At(0x18), At(0x19), At(0x1A), At(0x1B), Key(13 + SecondPart, 6),
    Space(1),  Key(46),        Key(35),  Key(34),  Space(1), Key(103), Key(104),
    Key(105),  Key(107, 4, 8),
};
constexpr Cell TallEnter[] = {Space(55), Key(13, 5, 8)};
constexpr Cell HomeRow[] = {
    Key(20, 7), At(0x1E), At(0x1F), At(0x20), At(0x21), At(0x22),  At(0x23), At(0x24), At(0x25),
    At(0x26),   At(0x27), At(0x28), At(0x2B), Space(5), Space(14), Key(100), Key(101), Key(102),
};
constexpr Cell LowerRow[] = {
    Key(160, 5), At(0x56), At(0x2C),     At(0x2D), At(0x2E),
    At(0x2F),    At(0x30), At(0x31),     At(0x32), At(0x33),
    At(0x34),    At(0x35), Key(161, 11), Space(5), Key(38),
    Space(5),    Key(97),  Key(98),      Key(99),  Key(13 + SecondPart, 4, 8),
};
constexpr Cell BottomRow[] = {
    Key(162, 5), Key(91, 5), Key(164, 5), Key(32, 25), Key(165, 5), Key(92, 5), Key(93, 5), Key(163, 5),
    Space(1),    Key(37),    Key(40),     Key(39),     Space(1),    Key(96, 8), Key(110),
};

struct Row {
    int top;
    std::span<const Cell> cells;
};
constexpr Row Rows[] = {
    {0, FunctionRow}, {6, DigitRow}, {10, UpperRow}, {10, TallEnter}, {14, HomeRow}, {18, LowerRow}, {22, BottomRow},
};

// --- the active layout ---

// Where layouts differ: letters, digits, and what the system calls the keys of the manufacturers.
bool MovesWithLayout(int vk) {
    return (vk >= '0' && vk <= '9') || (vk >= 'A' && vk <= 'Z') || (vk >= 0xBA && vk <= 0xC0) ||
           (vk >= 0xDB && vk <= 0xDF) || vk == 0xE2;
}

// The keys by the places where they stand.
std::map<int, int> KeysByScanCode() {
    std::map<int, int> keys;
    for (int vk = 0; vk < 256; ++vk) {
        if (MovesWithLayout(vk)) keys.emplace(platform::ScanCodeOf(vk), vk);
    }
    keys.erase(0);
    return keys;
}

// --- captions ---

std::map<int, std::string> DesignedCaptions() {
    return {
        {8, Translate("Back")},    {9, Translate("Tab")},    {13, Translate("Ent")},     {19, Translate("Pause")},
        {20, Translate("Caps")},   {27, Translate("Esc")},   {32, Translate("Space")},   {33, Translate("PgUp")},
        {34, Translate("PgDn")},   {35, Translate("End")},   {36, Translate("Home")},    {44, Translate("PrtSc")},
        {45, Translate("Ins")},    {46, Translate("Del")},   {91, Translate("Win")},     {92, Translate("Win")},
        {93, Translate("Menu")},   {144, Translate("Num")},  {145, Translate("Scroll")}, {160, Translate("Shift")},
        {161, Translate("Shift")}, {162, Translate("Ctrl")}, {163, Translate("Ctrl")},   {164, Translate("Alt")},
        {165, Translate("Alt")},
    };
}

bool IsArrow(int vk) {
    return vk >= 37 && vk <= 40;
}

bool IsFunctionKey(int vk) {
    return vk >= 112 && vk <= 123;
}

constexpr int PadZero = 96;
bool IsPadDigit(int vk) {
    return vk >= PadZero && vk <= PadZero + 9;
}

// A key that types a character shows it. The blank would show nothing, so it is called by its name.
std::string CaptionOf(int vk, const std::map<int, std::string>& designed) {
    const std::string name = KeyNameFromCode(vk);
    if (name.size() == 1 && name != " ") return name;
    if (IsPadDigit(vk)) return std::string(1, static_cast<char>('0' + vk - PadZero));
    if (IsFunctionKey(vk)) return std::string(KeyNames[static_cast<std::size_t>(vk)]);
    const auto found = designed.find(vk);
    return found == designed.end() ? std::string() : found->second;
}

// The pieces of the tall Enter key show it once; the one on the numeric pad is a key to itself.
bool ShowsCaption(const KeyPart& part) {
    constexpr int pad = 74;
    return part.index < SecondPart || part.place.left >= pad;
}

class Drawing {
public:
    void Draw(const Row& row) {
        int left = 0;
        for (const Cell& cell : row.cells) {
            const int index = IndexOf(cell);
            if (index != 0) Add(index, {left, row.top, left + cell.width, row.top + cell.height});
            left += cell.width;
        }
    }

private:
    int IndexOf(const Cell& cell) const {
        if (cell.kind != Cell::Placed) return cell.value;
        const auto found = byScanCode.find(cell.value);
        return found == byScanCode.end() ? 0 : found->second;
    }

    void Add(int index, const platform::Rect& place) {
        KeyPart part{index, place, {}};
        if (ShowsCaption(part) && !IsArrow(index)) part.caption = CaptionOf(index % SecondPart, designed);
        onscreenKeyboard.button.push_back(part);
    }

    const std::map<int, int> byScanCode = KeysByScanCode();
    const std::map<int, std::string> designed = DesignedCaptions();
};

KeyColours& ColoursAt(int index) {
    return CheckedAt(onscreenKeyboard.colours, index, "Button");
}

bool Contains(const platform::Rect& rect, platform::Point point) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top && point.y < rect.bottom;
}

// --- held keys ---

constexpr std::size_t LeftAlt = 164;
constexpr std::size_t RightAlt = 165;

}  // namespace

void NacrtajTipkovnicu() {
    onscreenKeyboard.button.clear();
    AllKeysAtRest();
    Drawing drawing;
    for (const Row& row : Rows) drawing.Draw(row);
}

bool ElementExists(int index) {
    return std::any_of(onscreenKeyboard.button.begin(), onscreenKeyboard.button.end(),
                       [index](const KeyPart& part) { return part.index == index; });
}

void PromjeniTipku(int index, std::uint32_t colour) {
    const auto shows = [index](const KeyPart& part) { return part.index == index && part.caption.size() == 1; };
    if (std::none_of(onscreenKeyboard.button.begin(), onscreenKeyboard.button.end(), shows)) return;
    ColoursAt(index).back = colour;
    if (index < 100) ColoursAt(index + SecondPart).back = colour;
}

void ColourKey(int key, const KeyColours& colours) {
    ColoursAt(key) = colours;
    if (key < 100) ColoursAt(key + SecondPart) = colours;
}

void AllKeysAtRest() {
    onscreenKeyboard.colours.fill(KeyAtRest);
}

int KeyAt(platform::Point place) {
    const auto& button = onscreenKeyboard.button;
    const auto found =
        std::find_if(button.begin(), button.end(), [&](const KeyPart& part) { return Contains(part.place, place); });
    return found == button.end() ? 0 : found->index % SecondPart;
}

KeysDown KeysHeldAt(const std::string& text, int position) {
    KeysDown held{};
    KeyNameMemory names;
    for (const TokenSpan& span : SpansOf(text)) {
        if (span.End() > position) break;
        int vk = KeyCodeUnknown;
        int action = ActionNone;
        ParseToken(text.substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length)), vk, action,
                   names, BadWords::PassedOver);
        if (vk != KeyCodeUnknown) held[static_cast<std::size_t>(vk)] = action == ActionDown;
    }
    held[RightAlt] = held[LeftAlt];  // a text has one name for both
    return held;
}
