// The one place where a run-time failure ends: the frame between Windows and the program. Window, dialog, timer and
// hook procedures are noexcept and do their work inside GuardedCall.
#pragma once

#include <exception>
#include <string>

namespace platform {

// Shows the failure in a box titled "Tessarine"; pumps while it is open. Timers go on meanwhile, so a failure that
// comes while the box is open is left out: it would most often be the same one, twice a second.
void ShowFailure(const std::string& text) noexcept;

// The same from the next pump outside of all hook calls, for callers that must return at once (hook procedures). Of
// several until then, the first is shown.
void ShowFailureLater(const std::string& text) noexcept;

// Runs `call`. False when it failed; the failure has then been shown by `show`, and the caller puts right what was
// under way (releases held keys, removes hooks, enables the main window).
template <class Call>
bool GuardedCall(Call&& call, void (*show)(const std::string&) noexcept = ShowFailure) noexcept {
    try {
        call();
        return true;
    } catch (const std::exception& failure) {  // RuntimeFailure, and a lack of memory
        show(failure.what());
        return false;
    }
}

}  // namespace platform
