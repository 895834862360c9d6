// What second starts of the program hand over to this one: command lines, and the wish to be shown. It is acted on at
// once when it can be, and waits here, in order, when it cannot: until the start of this process is done (which may
// show a box for as long as the user likes), and a job until the run under way has ended, which would refuse it without
// a word.
#pragma once

#include <deque>
#include <string>

#include "platform/timers.h"

struct HandedOver {
    bool starting = false;            // from OpenFrontDoor to CloseFrontDoor
    std::deque<std::string> waiting;  // command lines; an empty one is the wish to be shown
    platform::TimerId timer = 0;      // looks whether the first of them can be done
};
extern HandedOver handedOver;

// Takes what second starts send before the main window can, from the first moment on; call before anything shows a box.
void OpenFrontDoor();

// The start is done. The main window takes the messages from now on.
void CloseFrontDoor();

// What the main window's procedure does with the messages of a second start. Pumps for as long as a job runs.
void OnCommandHandedOver(const std::string& commandLine);
void OnShowYourself();

// The oldest of what waits, for a process that is done with its own command line and would end. False when there is
// none.
bool TakeNextHandedOver(std::string& commandLine);
