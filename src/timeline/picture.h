// A job as a picture: a time line of its rows with a lane for each window, and the path of the mouse over the screen.
#pragma once

#include <string>

#include "jobs/job_records.h"

// A whole SVG document in UTF-8, for light and dark surroundings. Takes any job; what a damaged one says of windows
// that there are not counts as no window. The size is bounded, however long the job: what would be less than a pixel
// apart is drawn as one. `name` is the title, in the system code page. Typed texts can be read in it. Nothing pumps.
std::string PictureOf(const Job& job, const std::string& name);
