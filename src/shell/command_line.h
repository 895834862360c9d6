// What a command line asks for, whether it came with this process or from a second start of the program.
#pragma once

#include <string>

// True when the word "startup" stands anywhere in it: the program was started with the computer. A file name with the
// word in it counts too, whatever stands before it.
bool IsComputerStart(const std::string& commandLine);

// True for "-run" with whatever stands behind it.
bool IsRunCommand(const std::string& commandLine);

// HandleCommandParameter: shows the window for an empty line, opens the editor for "-edit path", runs the job for
// "-run path". Only the first characters are compared, in any case, so "-runner x" runs "ner x". The path is taken as
// it stands: quotes belong to it, and a quoted path does not exist.
//
// A run that succeeds ends a process that was started for it, after what second starts have handed over to it meanwhile
// (handed_over.h); a file that does not exist ends the process in any case. Pumps for as long as the job runs.
void HandleCommandParameter(const std::string& commandLine, bool fromOtherInstance);
