#include "folding/row_texts.h"

#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "folding/grid_rows.h"
#include "folding/popuni_listu.h"
#include "keystrokes/notation.h"
#include "platform/boxes.h"
#include "platform/text.h"

namespace {

constexpr std::int32_t MouseTimeWord = 5;
constexpr std::int32_t KeyTimeWord = 3;

std::string Padded(std::int32_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

std::int32_t In32Bits(std::int64_t ms) {
    if (ms != static_cast<std::int32_t>(ms)) {
        throw RuntimeFailure(FailureKind::Overflow, "The time " + std::to_string(ms) + " ms is too large.");
    }
    return static_cast<std::int32_t>(ms);
}

// The row's kind says where the time lies, not the event's type: a run of moves can end at a wheel notch that has
// joined a keystroke row, and that has its time in both places.
std::int32_t TimeOf(std::int32_t row, std::int32_t eventIndex) {
    const JobEvent& event = CheckedAt(editState.EditEvents, eventIndex, "Event");
    return event.word[KindOfRow(row) == MouseRowKind ? MouseTimeWord : KeyTimeWord];
}

bool IsKnownKind(std::int32_t row) {
    return KindOfRow(row) == MouseRowKind || KindOfRow(row) == KeyRowKind;
}

bool IsKnownKindOrTell(std::int32_t row, const std::string& box) {
    if (IsKnownKind(row)) return true;
    platform::ShowBox(box + std::to_string(KindOfRow(row)), ProductName);
    return false;
}

// A row of one event is a press, a row of two a press with what `second` says. A wider one can't be; if it is, all
// stops here, as it did when this text was taken for a number.
std::string PressWords(const MouseRow& row, const std::string& second, const std::string& unknown) {
    const std::int32_t followers = row.LastEvent - row.FirstEvent;
    if (followers == 0) return actionWords.down;
    if (followers == 1) return second;
    throw RuntimeFailure(FailureKind::Type, "'" + unknown + "' is not a number.");
}

struct ButtonWords {
    std::int32_t down;
    std::int32_t up;
    std::string ActionWords::*name;
    const char* unknown;
};
constexpr ButtonWords Buttons[] = {
    {platform::MouseLeftDown, platform::MouseLeftUp, &ActionWords::left, "Unknow left click"},
    {platform::MouseRightDown, platform::MouseRightUp, &ActionWords::right, "Unknow right click"},
    {platform::MouseMiddleDown, platform::MouseMiddleUp, &ActionWords::middle, "Unknow middle click"},
};

// A whole click of an X button reads like its release.
std::string XButtonWords(const MouseRow& row) {
    const JobEvent& first = CheckedAt(editState.EditEvents, row.FirstEvent, "Event");
    const std::string name = "Xbutton" + std::to_string(first.mouseData() % 65536) + " ";
    if (row.Flags == MouseFlagBase + platform::MouseXUp) return name + actionWords.up;
    return name + PressWords(row, actionWords.up, "Unknow Xbutton click");
}

// What the top-level window of a chain is called when its element is to be named too.
std::string NameOfTop(const WindowSignature& top) {
    if (IsDesktop(top)) return "Desktop";
    if (top.ClassName == "#32768" && top.Caption.empty()) return "Popup menu";
    return top.Caption;
}

std::string NameOfElement(const WindowSignature& element) {
    const bool textField = platform::LowerCase(element.ClassName) == "edit";
    const std::string& kind = textField ? actionWords.textField : element.ClassName;
    return element.Caption + (kind.empty() ? "" : "(" + kind + ")");
}

bool IsMoveRow(const std::string& col1, const std::string& col2) {
    return platform::UpperCase(col1) == platform::UpperCase(actionWords.mouse) &&
           platform::UpperCase(col2) == platform::UpperCase(actionWords.move);
}

// Columns 1, 2, 6 and 7, which depend on the kind of row.
struct ActionColumns {
    std::string device;
    std::string action;
    std::string window;
    std::string detail;
};

ActionColumns MouseColumns(std::int32_t mouseRowIndex) {
    const MouseRow& row = CheckedAt(editState.MouseRows, mouseRowIndex, "Mouse row");
    return {actionWords.mouse, platform::UpperCase(GetInputStr(mouseRowIndex)), WindowName(row.WindowChainIndex),
            std::to_string(row.X) + "," + std::to_string(row.Y)};
}

ActionColumns KeyColumns(std::int32_t keyRowIndex) {
    const KeyRow& row = CheckedAt(editState.KeyRows, keyRowIndex, "Keystroke row");
    return {actionWords.keyboard, actionWords.keystrokes, WindowName(row.WindowChainIndex),
            ReduceKeystrokes(row.Text, BadWords::PassedOver)};
}

}  // namespace

// Hours go back to 0 after 60, not 24: nobody has recorded for that long.
std::string TimeString(std::int32_t seconds) {
    return Padded(seconds / 3600 % 60, 2) + ":" + Padded(seconds / 60 % 60, 2) + ":" + Padded(seconds % 60, 2);
}

std::string timeStr(std::int32_t ms) {
    return TimeString(ms / 1000) + "." + Padded(ms % 1000, 3);
}

std::int32_t Event_StartTime(std::int32_t row) {
    if (!IsKnownKindOrTell(row, "Unknown GridType in function Event_startTime:")) return 0;
    return TimeOf(row, EventsOfRow(row).first);
}

std::int32_t Event_EndTime(std::int32_t row) {
    if (!IsKnownKindOrTell(row, "Unknown GridType in function Event_EndTime:")) return 0;
    return TimeOf(row, EventsOfRow(row).last);
}

std::int32_t Event_I_Begin(std::int32_t row) {
    if (!IsKnownKindOrTell(row, "Unknown GridType in function Event_I_begin")) return 0;
    return EventsOfRow(row).first;
}

std::int64_t DelayOf(std::int32_t row) {
    const std::int64_t start = Event_StartTime(row);
    return row == 0 ? start : start - Event_EndTime(row - 1);
}

std::int64_t DurationOf(std::int32_t row) {
    return IsKnownKind(row) ? static_cast<std::int64_t>(Event_EndTime(row)) - Event_StartTime(row) : 0;
}

std::int32_t GetDelay(std::int32_t row) {
    return In32Bits(DelayOf(row));
}

std::int32_t GetEventDuration(std::int32_t row) {
    return In32Bits(DurationOf(row));
}

std::string GetInputStr(std::int32_t mouseRowIndex) {
    const MouseRow& row = CheckedAt(editState.MouseRows, mouseRowIndex, "Mouse row");
    if (row.Flags == DoubleClickFlags) return actionWords.doubleClick;
    if (row.Flags == MoveFlags) return actionWords.move;
    for (const ButtonWords& button : Buttons) {
        const std::string& name = actionWords.*button.name;
        if (row.Flags == MouseFlagBase + button.down) {
            return name + " " + PressWords(row, actionWords.click, button.unknown);
        }
        if (row.Flags == MouseFlagBase + button.up) return name + " " + actionWords.up;
    }
    const bool xButton =
        row.Flags == MouseFlagBase + platform::MouseXDown || row.Flags == MouseFlagBase + platform::MouseXUp;
    return xButton ? XButtonWords(row) : "Unknown";
}

std::string WindowName(std::int32_t chainIndex) {
    if (chainIndex < 0) return {};
    const WindowSignature* const top = FindOutermostWindow(editState.Arrays(), chainIndex);
    if (top == nullptr) return {};
    if (top->Caption.empty()) return WindowNameiElement(chainIndex);
    return IsDesktop(*top) ? "Desktop" : top->Caption;
}

std::string WindowNameiElement(std::int32_t& chainIndex) {
    if (chainIndex == NoWindowMarker) return {};
    if (chainIndex < 0) chainIndex = In32Bits(-static_cast<std::int64_t>(chainIndex));
    const WindowSignature* const top = FindOutermostWindow(editState.Arrays(), chainIndex);
    if (top == nullptr) return {};
    std::string name = NameOfTop(*top);
    const WindowChain& chain = CheckedAt(editState.Chains, chainIndex, "Window chain");
    const bool elementIsKnown =
        chain.Path[0] >= 0 && chain.Path[0] < static_cast<std::int64_t>(editState.Windows.size());
    if (name == "Desktop" || chain.Depth <= 0 || !elementIsKnown) return name;
    return name + (name.empty() ? "" : " -> ") + NameOfElement(CheckedAt(editState.Windows, chain.Path[0], "Window"));
}

GridColumns StaviUGrid(const std::string& number, const std::string& col1, const std::string& col2,
                       const std::string& col3, const std::string& col4, const std::string& col5,
                       const std::string& col6, const std::string& col7) {
    GridColumns columns = {number, col1, col2, col3, col4, col5, col6, col7};
    if (col1 == actionWords.keyboard && col2 == actionWords.keystrokes && col7.starts_with("{WHEEL")) {
        columns[1] = actionWords.mouse;
        columns[2] = actionWords.wheel;
    }
    if (IsMoveRow(columns[1], columns[2])) columns[0].clear();
    return columns;
}

GridColumns RowColumns(std::int32_t row) {
    const std::int32_t index = CheckedAt(editState.RowIndex, row, "Row");
    const ActionColumns action = KindOfRow(row) == MouseRowKind ? MouseColumns(index) : KeyColumns(index);
    return StaviUGrid(std::to_string(CheckedAt(editState.RowNumber, row, "Row")), action.device, action.action,
                      std::to_string(DelayOf(row)) + "ms", timeStr(Event_StartTime(row)),
                      std::to_string(DurationOf(row)) + "ms", action.window, action.detail);
}
