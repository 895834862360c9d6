// Sending a keystroke text.
#pragma once

#include <cstdint>
#include <string>

// What the text's row knows of its run.
struct KeystrokePacing {
    std::int32_t totalMs = 0;  // recorded length of the job, for the progress bar
    std::int32_t speedPercent = 100;
    std::int32_t budgetMs = 0;  // spread over the tokens; below 1: no pauses
    bool soundsOn = false;
};

// Types `text`. Returns the sum of the SendInput results; 0 or less when the text does not compile (after a box, with
// nothing sent); -2 when canceled by ESC: what was sent stays sent, and held keys stay in KeysDown. `escHeld` is in
// and out: whether the job itself holds ESC.
std::int32_t SendKeystrokes(const std::string& text, const KeystrokePacing& pacing, bool& escHeld);

// One wheel turn at the cursor; 120 is one notch away from the user. Returns what SendInput returns.
std::int32_t SendWheel(std::int32_t delta);

// A random index into the loaded key sounds, 0 when there are none.
int PickSound();
