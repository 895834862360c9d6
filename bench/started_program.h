// A program that a bench of the real desktop starts and watches from outside: tessarine.exe, or what it is held
// against.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "win32/handles.h"

namespace bench {

// The process. Ends the bench when it cannot be started.
platform::OwnedHandle Start(std::string commandLine);

// At once, and waits until it is gone.
void End(const platform::OwnedHandle& process);

// What `window` returns, once that is a window; looks every `pauseMs`. Ends the bench when none comes.
HWND Await(const std::function<HWND()>& window, int pauseMs = 50);

// Null when there is none of this class, or it is not to be seen.
HWND VisibleWindow(const char* className);

}  // namespace bench
