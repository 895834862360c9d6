// What a run would find now for a row of the open job, saved or not. Nothing is sent or moved, and nothing pumps.
#pragma once

#include "replay/explanation.h"

// For the row with the selection's end. A job without rows gives one that looks for nothing.
Explanation ExplainSelectedRow();
