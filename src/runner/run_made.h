// The run of a made program: a job that stands behind the program in its own file. It is played as the main program
// plays it, and nothing stays of it: no setting, no file, no hotkey.
#pragma once

#include <string>

#include "base/exit_codes.h"

// Plays the job in the made program at `path` under the name of that file, with all status windows. What is damaged or
// empty is told in a box, and nothing is sent. After a failure the status window stays, for the user to read and close;
// another run may begin meanwhile. Not told: that another run is under way, whose input a box would take, and that the
// desktop cannot be reached, where nobody sees a box. Pumps.
ExitCode RunMade(const std::string& path);
