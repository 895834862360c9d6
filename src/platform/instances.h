// Telling a second start of the program from the first, and talking to the first. Sending blocks until the receiver
// has dealt with the message: for as long as a job runs, if that is what it does with it.
#pragma once

#include <string>

#include "platform/types.h"

namespace platform {

// True when another process of this user runs the program. The first call claims the place for this process.
bool AnotherInstanceRuns();

// WM_COPYDATA with dwData 3, wParam 1: `bytes` is the whole payload.
void SendCopyData(WindowHandle window, const std::string& bytes);

// SendMessageA with wParam 1.
void SendPlainMessage(WindowHandle window, unsigned message);

}  // namespace platform
