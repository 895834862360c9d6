#include "bench/silent_status_view.h"

#include <string>

#include "replay/status_view.h"

SilentStatusView silentStatusView;

namespace status_view {
void ShowExecuting() {}
bool ExecutingVisible() {
    return false;
}
platform::Rect ExecutingRectangle() {
    return {};
}
void MoveExecuting(std::int32_t) {}
void SetStatusLabel(const std::string&) {}
void StopDodging() {}
void ShowCloseButton(bool) {}
void ClearList() {}
void AddLine(const std::string&) {}
void InsertLine(int, const std::string&) {}
void SetLine(int, const std::string&) {}
std::string LineText(int) {
    return {};
}
void SelectLine(int) {}
int SelectedLine() {
    return -1;
}
void ScrollListDown() {}
void ShowBar(bool) {}
void SetBar(int) {}
int BarValue() {
    return 0;
}
int BarMaximum() {
    return 100;
}
void ShowExecuting2(const std::string&) {}
void UnloadExecuting2() {}
bool Executing2Visible() {
    if (silentStatusView.onMouseEvent) silentStatusView.onMouseEvent();
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
