// Follows keys and buttons through a job: which are pressed and never let go of, which are let go of without a press.
//
// Told is only what no recording brings by itself. The stop key, or a click on the Stop button, can cut off the last
// release, so what is down at the end counts only when something was pressed behind it in another row. A held key
// repeats, but not once another key has been pressed. Releases of buttons, and of extended keys, come alone when the
// press was for one of our own windows or before the recording.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "jobs/job_records.h"
#include "keystrokes/notation.h"

class PressLedger {
public:
    enum Button : std::uint8_t { Left, Right, Middle, X1, X2, ButtonCount };

    struct Held {
        std::int32_t event = -1;  // of the press, or of the lone release
        std::int32_t input = 0;   // virtual key; FirstButton + Button
    };
    static constexpr std::int32_t FirstButton = KeyNameCount;

    PressLedger();

    // An event of a key with a code below KeyNameCount, or of the mouse; text rows are told token by token.
    void TakeKey(const JobEvent& event, std::int32_t index);
    void TakeMouse(const JobEvent& event, std::int32_t index);
    void TakeToken(std::int32_t vk, std::int32_t action, std::int32_t index);

    // A text row or a turn of the wheel.
    void TakeOther(std::int32_t index) { lastPress = index; }

    // Pressed again without a release in between; released without a press.
    const std::vector<Held>& PressedTwice() const { return pressedTwice; }
    const std::vector<Held>& LoneReleases() const { return loneReleases; }

    // Down at the end of the job, and the last event that pressed something.
    std::vector<Held> HeldAtEnd() const;
    std::int32_t LastPress() const { return lastPress; }

private:
    void PressKey(std::int32_t vk, std::int32_t index);
    void ReleaseKey(std::int32_t vk, std::int32_t index, bool mayBeAlone);
    void PressButton(std::int32_t button, std::int32_t index);

    std::array<std::int32_t, FirstButton + ButtonCount> pressedAt;  // event; -1: up
    std::int32_t lastKey = -1;                                      // the one that repeats
    std::int32_t lastPress = -1;
    std::vector<Held> pressedTwice;
    std::vector<Held> loneReleases;
};
