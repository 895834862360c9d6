// The status windows of a run, as lines on the console: a row when it has its verdict, and what ends the run.
#include "tsj_desktop/console_view.h"

#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/text.h"
#include "replay/status_view.h"

namespace {

struct Console {
    std::vector<std::string> lines;  // of the action list
    std::string status;
    int selected = -1;
    int bar = 0;
    std::function<void(std::string_view)> write = [](std::string_view) {};
};
Console console;

void PrintLine(const std::string& text) {
    console.write(platform::ToUtf8(text) + "\n");
}

// A row that waits for its verdict has room in front for it.
bool IsRow(const std::string& line) {
    return line.starts_with(' ');
}

}  // namespace

void ShowRunOn(std::function<void(std::string_view)> writeUtf8) {
    console.write = std::move(writeUtf8);
}

namespace status_view {

void ShowExecuting() {}

bool ExecutingVisible() {
    return false;
}

platform::Rect ExecutingRectangle() {
    return {};
}

void MoveExecuting(std::int32_t) {}

// It is told at every event; only a change is worth a line, and that a window is waited for.
void SetStatusLabel(const std::string& text) {
    if (text == console.status) return;
    console.status = text;
    const std::size_t lineBreak = text.find(LineBreak);
    if (lineBreak == std::string::npos) return;
    PrintLine(text.substr(0, lineBreak) + " " + text.substr(lineBreak + std::string_view(LineBreak).size()));
}

void StopDodging() {}

void ShowCloseButton(bool) {}

void ClearList() {
    console.lines.clear();
}

void AddLine(const std::string& text) {
    console.lines.push_back(text);
    if (!IsRow(text)) PrintLine(text);
}

void InsertLine(int, const std::string& text) {
    PrintLine(text);
}

void SetLine(int index, const std::string& text) {
    if (index < 0 || index >= static_cast<int>(console.lines.size())) return;
    console.lines[static_cast<std::size_t>(index)] = text;
    PrintLine(text);
}

std::string LineText(int index) {
    const bool exists = index >= 0 && index < static_cast<int>(console.lines.size());
    return exists ? console.lines[static_cast<std::size_t>(index)] : std::string();
}

void SelectLine(int index) {
    console.selected = index;
}

int SelectedLine() {
    return console.selected;
}

void ScrollListDown() {}

void ShowBar(bool) {}

void SetBar(int value) {
    console.bar = value;
}

int BarValue() {
    return console.bar;
}

int BarMaximum() {
    return 100;
}

void ShowExecuting2(const std::string&) {}

void UnloadExecuting2() {}

bool Executing2Visible() {
    return false;
}

platform::Rect Executing2Rectangle() {
    return {};
}

void MoveExecuting2(std::int32_t) {}

void SetSecondLabel(const std::string&) {}

int PixelsPerInch() {
    return 96;
}

}  // namespace status_view
