// A desktop with windows that react to input, and a user who does something there that only the seed knows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/types.h"

// When the windows of each program open (ms from now); 0 is at once.
struct Openings {
    int editor = 0;
    int painter = 0;
    int calculator = 0;
};

// Takes the old windows away and sets the same ones up anew, with the same focus, cursor and toggles. What they do when
// they are clicked and typed into follows from the input alone, some of it after a while.
void BuildDesktop(const Openings& openings = {});

// Another editor, painter or calculator (by the name of its top-level window) with the same captions and elements. It
// is called "twin.editor" and so on.
void AddTwin(const std::string& name, platform::Rect rect);

// The top-level windows that there are just now, the desktop's own left out.
std::vector<platform::WindowHandle> ProgramsOnDesktop();

// "editor.text", "painter.canvas": the same window of any BuildDesktop, also after it is gone.
std::string NameOf(platform::WindowHandle window);

// What stands in the text fields: name and text.
std::vector<std::pair<std::string, std::string>> TextsOnDesktop();

// Where in the journal of the hands something stands that a recording changes, as [first, behind the last).
struct JournalRange {
    std::size_t begin = 0;
    std::size_t end = 0;
};
struct UserSession {
    std::vector<JournalRange> doubleClicks;
    std::vector<JournalRange> scrollLocks;
};

// Plays the session of this seed, and lets the clock run with it. All keys and buttons are up at its end.
UserSession PlayUser(std::uint32_t seed);
