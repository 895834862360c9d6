// The job list of a test.
#pragma once

#include <string>
#include <vector>

struct JobListViewStandIn {
    std::vector<std::string> calls;  // "refresh", "select C:\..."
};
extern JobListViewStandIn jobListViewStandIn;
