// Keeps the keys of one text row in the window that the row belongs to. A window of another program that takes the
// foreground in the middle of a row must not get the rest of it; a window that the row's own keys have opened (Ctrl+F,
// the Windows key with R) must. The one is told from the other by what the row has sent so far and by who owns the new
// window. Never pumps.
#pragma once

#include <cstdint>
#include <string>

#include "platform/input.h"
#include "platform/types.h"

class FocusWatch {
public:
    // `foreground` has the keys of the row's beginning.
    explicit FocusWatch(platform::WindowHandle foreground);

    // One query: whether the window in front is one that the row did not bring there.
    bool Stolen();

    // The row has left its recorded window by its own keys: a search for that would lead back to the wrong place.
    bool HasLeftItsWindow() const { return expected != home; }
    std::string ExpectedCaption() const { return expectedCaption; }

    // The row goes on in the window that is in front now.
    void GoOnHere();

    // A token that went out: a key (`action` as in the notation) or the wheel.
    void Sent(std::int32_t virtualKey, std::int32_t action);

private:
    bool OpenedByTheRow(platform::WindowHandle window) const;
    void Expect(platform::WindowHandle window);

    platform::WindowHandle home;
    platform::WindowHandle expected;
    std::string expectedCaption;
    std::uint32_t thread = 0;  // of the expected window
    int modifiersHeld = 0;     // Ctrl, Alt, Windows
    bool commandSent = false;  // a key that may open, close or change a window of the same program
    bool switchSent = false;   // one that may lead to any window
};
