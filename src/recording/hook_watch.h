// Windows takes low-level hooks away from a program that is too slow, without a word, and a recording would go on with
// nothing in it. The watch notices input that plainly happened and that no hook heard of. It puts the hooks in again,
// and the status form and the tray tip say, until the recording ends, that something may be missing.
//
// The system tells when the last input was, but not of which device. So a call of either hook is a sign of life of
// both; a hook that went alone is noticed when the other's device rests for some seconds, and then both are put in
// again. Input on a locked screen, or into a window of higher privilege, reaches no hook either. It is told the same,
// for it is missing too; new hooks do not help there, so they are tried at growing intervals. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>

struct HookWatch {
    std::int64_t lastCall = 0;     // tick of the newest hook call, or of the hooks' arrival
    bool heard = false;            // a call since the hooks were put in
    std::int64_t silentSince = 0;  // tick at which input without a call was first seen; 0: none
    std::int64_t nextTry = 0;      // tick before which the hooks are not put in again
    std::int64_t pause = 0;        // ms between the newest try and nextTry
    bool told = false;             // the user has been told
};
extern HookWatch hookWatch;

// Before a recording: nothing is told.
void ResetHookWatch();

// From here on; the hooks have just been put in.
void StartHookWatch();

// By either hook procedure, at once and for every call.
void NoteHookCall();

// Once a second, while the hooks are in. A hook that is missing is noticed in the second call after the input that it
// missed, so that input on its way to a hook is no alarm.
void WatchHooks();

// What the user is told.
std::string HookNotice();
