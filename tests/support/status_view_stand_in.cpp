#include "support/status_view_stand_in.h"

#include <algorithm>
#include <new>

#include "replay/status_view.h"
#include "support/recorder.h"

StatusViewStandIn statusViewStandIn;

namespace {

StatusViewStandIn& view = statusViewStandIn;

bool LineExists(int index) {
    return index >= 0 && index < static_cast<int>(view.list.size());
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

ANSWERS(bool, ExecutingVisible, view.executing.visible)
ANSWERS(platform::Rect, ExecutingRectangle, view.executing.rectangle)

void MoveExecuting(std::int32_t left) {
    MoveTo(view.executing.rectangle, left);
}

KEEPS(SetStatusLabel, const std::string&, view.statusLabel)

void StopDodging() {
    view.dodging = false;
}

KEEPS(ShowCloseButton, bool, view.closeButtonVisible)

void ClearList() {
    view.list.clear();
    view.selectedLine = -1;
    view.topIndex = 0;
}

TELLS(view.list, AddLine, const std::string&, value)

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

ANSWERS(int, SelectedLine, view.selectedLine)

void ScrollListDown() {
    ++view.topIndex;
}

KEEPS(ShowBar, bool, view.barVisible)

void SetBar(int value) {
    if (statusViewStandIn.noMemoryForBar && value > 0) throw std::bad_alloc();
    view.barValue = std::clamp(value, 0, view.barMaximum);
    if (view.barHistory.empty() || view.barHistory.back() != view.barValue) view.barHistory.push_back(view.barValue);
}

ANSWERS(int, BarValue, view.barValue)
ANSWERS(int, BarMaximum, view.barMaximum)

void ShowExecuting2(const std::string& jobName) {
    view.executing2.visible = true;
    view.jobName = jobName;
}

void UnloadExecuting2() {
    view.executing2.visible = false;
}

ANSWERS(bool, Executing2Visible, view.executing2.visible)
ANSWERS(platform::Rect, Executing2Rectangle, view.executing2.rectangle)

void MoveExecuting2(std::int32_t left) {
    MoveTo(view.executing2.rectangle, left);
}

KEEPS(SetSecondLabel, const std::string&, view.secondLabel)
ANSWERS(int, PixelsPerInch, view.pixelsPerInch)

}  // namespace status_view
