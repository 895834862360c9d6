// The guard: a small process that idles while the program lives, and releases the keys and buttons that a run held down
// should the program be killed in the middle of it. Nothing here pumps.
#pragma once

namespace platform {

// Sees to it that a guard watches this process. Called at the start of a run: the first call starts one, later ones
// start another where the last has died. Does not wait for it, and takes well under a millisecond. Where no guard can
// be had, nothing is said, and the next call tries again.
//
// The guard is this very program, started with a command line of its own (guard/guard_command.h), which the entry of
// the program has to answer with RunGuard (guard/guard_process.h).
void StartGuard();

}  // namespace platform
