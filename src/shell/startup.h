// The start of the program: one instance at a time, the folders, the settings, the main window, and only then the
// command line.
#pragma once

#include <string>

inline constexpr const char* MainWindowClass = "TessarineMainWindow";

// A second start asks the first one with this message to show itself. Window messages go up to 0x1FFFF, whatever the
// range that is recommended for them.
inline constexpr unsigned ShowYourselfMessage = 123456;

// "Tessarine 3.0.6": the caption by which a second start finds the first, and the tip of the tray icon. It holds the
// version, so that another version does not count as running.
std::string MainCaption();

// Main. False when another instance runs and has been given this one's command line or its wish to be shown: the
// process is then to end. One that is still starting takes it too (handed_over.h), and one that ends meanwhile makes
// room for this one. True when the main window stands; the message loop is the caller's. A range failure for a command
// line that is too long to be handed over ends the process as well, with nothing sent; all other failures are told in a
// box, and the start goes on.
bool Main();

// The load event of the main window.
void LoadMainWindow();
