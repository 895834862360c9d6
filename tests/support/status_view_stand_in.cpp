#include "support/status_view_stand_in.h"

#include <algorithm>

#include "replay/status_view.h"

StatusViewStandIn statusViewStandIn;

namespace {

StatusViewStandIn& view = statusViewStandIn;

bool LineExists(int index) {
    return index >= 0 && index < static_cast<int>(view.list.size());
}

template <class Value>
void Remember(std::vector<Value>& history, const Value& value) {
    if (history.empty() || history.back() != value) history.push_back(value);
}

void MoveTo(platform::Rect& rectangle, std::int32_t left) {
    rectangle.right += left - rectangle.left;
    rectangle.left = left;
}

}  // namespace

namespace status_view {

void ShowExecuting() {
    view.executing.visible = true;
    view.dodging = true;
    view.closeButtonVisible = false;
    view.barVisible = true;
}

bool ExecutingVisible() {
    return view.executing.visible;
}

platform::Rect ExecutingRectangle() {
    return view.executing.rectangle;
}

void MoveExecuting(std::int32_t left) {
    MoveTo(view.executing.rectangle, left);
}

void SetStatusLabel(const std::string& text) {
    view.statusLabel = text;
    Remember(view.statusHistory, text);
}

void StopDodging() {
    view.dodging = false;
}

void ShowCloseButton(bool show) {
    view.closeButtonVisible = show;
}

void ClearList() {
    view.list.clear();
    view.selectedLine = -1;
    view.topIndex = 0;
}

void AddLine(const std::string& text) {
    view.list.push_back(text);
}

void InsertLine(int index, const std::string& text) {
    if (index == static_cast<int>(view.list.size()) || LineExists(index))
        view.list.insert(view.list.begin() + index, text);
}

void SetLine(int index, const std::string& text) {
    if (LineExists(index)) view.list[static_cast<std::size_t>(index)] = text;
}

std::string LineText(int index) {
    return LineExists(index) ? view.list[static_cast<std::size_t>(index)] : std::string();
}

void SelectLine(int index) {
    if (LineExists(index)) view.selectedLine = index;
}

int SelectedLine() {
    return view.selectedLine;
}

void ScrollListDown() {
    ++view.topIndex;
}

void ShowBar(bool show) {
    view.barVisible = show;
}

void SetBar(int value) {
    view.barValue = std::clamp(value, 0, view.barMaximum);
    Remember(view.barHistory, view.barValue);
}

int BarValue() {
    return view.barValue;
}

int BarMaximum() {
    return view.barMaximum;
}

void ShowExecuting2(const std::string& jobName) {
    view.executing2.visible = true;
    view.jobName = jobName;
}

void UnloadExecuting2() {
    view.executing2.visible = false;
}

bool Executing2Visible() {
    return view.executing2.visible;
}

platform::Rect Executing2Rectangle() {
    return view.executing2.rectangle;
}

void MoveExecuting2(std::int32_t left) {
    MoveTo(view.executing2.rectangle, left);
}

void SetSecondLabel(const std::string& text) {
    view.secondLabel = text;
}

int PixelsPerInch() {
    return view.pixelsPerInch;
}

}  // namespace status_view
