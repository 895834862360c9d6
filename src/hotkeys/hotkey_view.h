// What a press of a hotkey sets going. The job runner and the main window stand above the table and implement this; in
// the tests a stand-in does.
#pragma once

#include <string>

namespace hotkey_view {

// Starts the job without blocking the user's input, since the keys that asked for it are still down. How the run ends
// is of no interest here. Pumps for as long as the job runs.
void StartJob(const std::string& path);

// As a click on command3: a new recording.
void ClickCommand3();

}  // namespace hotkey_view
