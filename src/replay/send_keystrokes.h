// Sending a keystroke text.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

// What the text's row knows of its run.
struct KeystrokePacing {
    std::int32_t totalMs = 0;  // recorded length of the job, for the progress bar
    std::int32_t speedPercent = 100;
    std::int32_t budgetMs = 0;  // spread over the tokens; below 1: no pauses
    bool soundsOn = false;
};

// Whether the text may go on. A text that is left out still releases the keys that it holds, and takes its time.
enum class TextStep { GoOn, LeaveOut, Stop };

// Looks after the window that the keys go to. Either may be empty.
struct KeystrokeGuard {
    std::function<TextStep()> beforePress;                                         // of a key, and before a wheel turn
    std::function<void(std::int32_t virtualKey, std::int32_t action)> afterToken;  // that went out
};

// Types `text`. Returns the sum of the SendInput results; 0 or less when the text does not compile (after a box, with
// nothing sent); -2 when canceled by ESC, DesktopOutOfReach (reach.h) when the desktop went away: what was sent stays
// sent, and held keys stay in KeysDown. `escHeld` is in and out: whether the job itself holds ESC. When the guard
// leaves the rest of the text out, or stops it, the result is 0.
std::int32_t SendKeystrokes(const std::string& text, const KeystrokePacing& pacing, bool& escHeld,
                            const KeystrokeGuard& guard = {});

// One wheel turn at the cursor; 120 is one notch away from the user. Returns what SendInput returns.
std::int32_t SendWheel(std::int32_t delta);

// A random index into the loaded key sounds, 0 when there are none.
int PickSound();
