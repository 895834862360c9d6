// Message boxes. Each is modal, pumps while it is open, and returns when the user has answered. Not to be
// opened inside a hook call (InHookCall): the user could not even move the mouse to it.
#pragma once

#include <string>

#include "platform/types.h"

namespace platform {

enum class BoxIcon { None, Error, Warning, Question, Information };

// A box with an OK button.
void ShowBox(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::None);

// A box with Yes and No; true for Yes.
bool AskYesNo(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Question);

// The same for what cannot be undone: a stray Enter is a No.
bool AskBeforeLoss(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Question);

// A box with OK and Cancel; true for OK.
bool AskOkCancel(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Question);

// A box with Yes, No and Cancel, for what waits to be saved. Esc is Cancel.
enum class BoxChoice { Yes, No, Cancel };
BoxChoice AskToSave(const std::string& text, const std::string& title, BoxIcon icon = BoxIcon::Question);

// Told of every modal window of the system's, the folder browser among them: just before it opens, with the window that
// it is modal to (0: all windows of the program), and when it has closed. One watch at a time.
struct BoxWatch {
    void (*opens)(WindowHandle owner) = nullptr;
    void (*closed)() = nullptr;
};
void WatchBoxes(const BoxWatch& watch);

}  // namespace platform
