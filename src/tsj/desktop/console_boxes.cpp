// What the libraries tell in boxes, on the console: nobody may be there to answer one. It stands in for the boxes of
// the desktop.
#include <cstdio>

#include "platform/boxes.h"
#include "platform/text.h"

namespace platform {

void ShowBox(const std::string& text, const std::string&, BoxIcon) {
    std::fprintf(stderr, "tsj: %s\n", ToUtf8(text).c_str());
}

// No question of the libraries can come up here; what would lose something is refused.
bool AskYesNo(const std::string& text, const std::string& title, BoxIcon icon) {
    ShowBox(text, title, icon);
    return false;
}

bool AskBeforeLoss(const std::string& text, const std::string& title, BoxIcon icon) {
    return AskYesNo(text, title, icon);
}

bool AskOkCancel(const std::string& text, const std::string& title, BoxIcon icon) {
    return AskYesNo(text, title, icon);
}

BoxChoice AskToSave(const std::string& text, const std::string& title, BoxIcon icon) {
    ShowBox(text, title, icon);
    return BoxChoice::Cancel;
}

}  // namespace platform
