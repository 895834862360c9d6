// The form of the job editor, as a test sees it.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/types.h"

struct EditViewStandIn {
    std::vector<std::string> calls;
    platform::WindowHandle window = 4711;  // what Show returns
    bool mayLeaveJobPage = true;
    std::deque<std::string> names;          // what the user types when a name is asked for; then Cancel
    std::vector<std::string> namesOffered;  // in the box, when it opened
};
extern EditViewStandIn editViewStandIn;
