// Another program's window for the benches of the real desktop: the bench itself, started a second time. A top-level
// window with an Edit that has the focus, which can be told to hang for a while.
#pragma once

#include "platform/types.h"

namespace bench {

// The second process: main returns RunTarget() when this is true.
bool IsTarget(int count, char** words);
int RunTarget();

// The first: starts it and waits until it has the focus. Ends the bench when it does not come.
platform::WindowHandle StartTarget();
void CloseTarget(platform::WindowHandle target);

// Returns when the target answers no message any more. It goes on by itself after `ms`; WaitForTarget sees to that.
void HangTarget(platform::WindowHandle target, int ms);
void WaitForTarget(platform::WindowHandle target);

}  // namespace bench
