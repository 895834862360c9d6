// Boxes that nobody answers and nobody counts: of a fold there can be hundreds, and nothing may pile up.
#include "platform/boxes.h"

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
