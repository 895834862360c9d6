// Which events of a job have a window or a place of their own. Releases and moves go where the press before them went.
#pragma once

#include "jobs/job_records.h"

// A button goes down, or a double click.
bool IsButtonPress(const JobEvent& event);

bool IsWheelTurn(const JobEvent& event);

bool IsKeyDown(const JobEvent& event);

// Whether a run looks for a window before it sends this event, if one was recorded.
bool LooksForWindow(const JobEvent& event);

// Whether it goes to the focus, and not to what is under the cursor.
bool GoesToFocus(const JobEvent& event);

// A mouse event without place and time, as a recording writes the clicks of the Scroll Lock key, and the empty event
// that is left of a mouse message that it doesn't know.
bool IsWithoutPlaceAndTime(const JobEvent& event);
