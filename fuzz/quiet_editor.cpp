// A form of the job editor that nobody looks at, and boxes that nobody answers: of a fold there can be hundreds, and
// nothing may pile up.
#include "editor/edit_view.h"
#include "editor/keystroke_view.h"
#include "platform/boxes.h"

namespace edit_view {

bool MayLeaveJobPage() {
    return true;
}
platform::WindowHandle Show() {
    return 1;
}
void ShowRows() {}
void RepaintRows() {}
void Refresh() {}
bool AskJobName(std::string&) {
    return false;
}
void PutAside() {}
void BringBack() {}

}  // namespace edit_view

namespace keystroke_view {

void ShowText() {}
void FocusText() {}
bool TextHasKeyboard() {
    return false;
}
void LeaveText() {}
void ClearPlainText() {}
void FocusPlainText() {}
bool PlainTextHasKeyboard() {
    return false;
}
void AppendPlainText(const std::string&) {}
void FocusGrid() {}

}  // namespace keystroke_view

namespace platform {

void ShowBox(const std::string&, const std::string&, BoxIcon) {}
bool AskYesNo(const std::string&, const std::string&, BoxIcon) {
    return false;
}
bool AskBeforeLoss(const std::string&, const std::string&, BoxIcon) {
    return false;
}
bool AskOkCancel(const std::string&, const std::string&, BoxIcon) {
    return false;
}
BoxChoice AskToSave(const std::string&, const std::string&, BoxIcon) {
    return BoxChoice::Cancel;
}
void WatchBoxes(const BoxWatch&) {}

}  // namespace platform
