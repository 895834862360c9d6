#include "replay/row_descriptions.h"

#include <string_view>

#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"

namespace {

// The words are English in all languages, spelled as people have come to know them from the logs.
struct ButtonWords {
    std::int32_t down;
    std::int32_t up;
    const char* name;     // at the start of a line
    const char* unknown;  // a press that is neither alone nor a click
};
constexpr ButtonWords Buttons[] = {
    {platform::MouseLeftDown, platform::MouseLeftUp, "Left", "Unknow left click"},
    {platform::MouseRightDown, platform::MouseRightUp, "Right", "Unknow right click"},
    {platform::MouseMiddleDown, platform::MouseMiddleUp, "Middle", "Unknow middle click"},
};

std::string PressWords(const ActionRow& row, const std::string& name, const std::string& unknown) {
    if (row.lastEvent == row.firstEvent + 1) return name + " click";
    if (row.lastEvent == row.firstEvent) return name + " down";
    return unknown;
}

std::string XButtonWords(const ActionRow& row, std::int64_t action, const std::vector<JobEvent>& events) {
    const JobEvent& first = CheckedAt(events, row.firstEvent, "Event");
    const std::string name = "Xbutton" + std::to_string(first.mouseData() % 65536);
    return action == platform::MouseXUp ? name + " up:" : PressWords(row, name, "Unknow Xbutton click");
}

std::string ActionOf(const ActionRow& row, const std::vector<JobEvent>& events) {
    if (row.flags == DoubleClickFlags) return "Double click";
    const std::int64_t action = std::int64_t{row.flags} - MouseFlagBase;
    if (action == platform::MouseMove) return "Move";
    for (const ButtonWords& button : Buttons) {
        if (action == button.down) return PressWords(row, button.name, button.unknown);
        if (action == button.up) return std::string(button.name) + " up";
    }
    if (action == platform::MouseXDown || action == platform::MouseXUp) return XButtonWords(row, action, events);
    return {};
}

std::string Describe(const ActionRow& row, const std::vector<JobEvent>& events) {
    if (row.kind == MouseActionRow) return actionWords.mouse + ": " + ActionOf(row, events);
    const bool wheel = row.text.starts_with("{WHEEL");
    return (wheel ? "MOUSE WHEEL: " : "KEYSTROKES: ") + row.text;
}

}  // namespace

void DropMoveRows(std::vector<ActionRow>& rows) {
    std::erase_if(rows, [](const ActionRow& row) {
        return row.kind == MouseActionRow && row.flags == MouseFlagBase + platform::MouseMove;
    });
}

std::vector<std::string> RowDescriptions(const std::vector<ActionRow>& rows, const std::vector<JobEvent>& events) {
    Translate("OK");  // a lookup sets the action words for the current language
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const ActionRow& row : rows) {
        const std::string number = std::to_string(texts.size() + 1);
        const std::string place = row.windowName.empty() ? "" : " at: " + row.windowName;
        texts.push_back(std::string(8, ' ') + number + ". " + Describe(row, events) + place);
    }
    return texts;
}
