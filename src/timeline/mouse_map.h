// The lower half of the picture: the path of the mouse over the screen, with the windows as they stood and the clicks.
#pragma once

#include "timeline/job_actions.h"
#include "timeline/time_lanes.h"

// Nothing, and the same bottom, for a job without a place of the mouse.
Section MouseMap(const JobActions& job, double top);
