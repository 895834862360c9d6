// Late input may catch up, but must not change its meaning: two clicks on one spot that were recorded apart must not
// become a double click because the first came late, the job runs fast, or a pass follows the one before at once. Knows
// the last press that a run sent, and tells for how long the next one has to be held back. Never waits itself.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "jobs/job_records.h"
#include "platform/types.h"

class ClickSpacing {
public:
    // Presses of two passes, or of two runs, never belong together.
    void BeginPass() { ++pass; }

    // The time in ms for which `event`, a press or double click about to be sent at the cursor, has to wait, until the
    // system no longer pairs it with the press before. 0 when it can go: it would not be paired, or the two were
    // recorded as close together as a double click is.
    std::int32_t HoldBack(const JobEvent& event);

    // Whether cursor and window are still those that the last HoldBack saw, and where it saw them. For a press that it
    // told to wait.
    bool NothingMoved() const;

    // The press of the last HoldBack went out just now.
    void Sent();

private:
    struct Press {
        std::int32_t button = 0;  // its action flag
        std::int32_t data = 0;    // tells the X buttons apart
        std::uint32_t pass = 0;
        std::int32_t recordedMs = 0;  // of a double click, when its first half was pressed
        platform::Point position;
        platform::WindowHandle window = 0;
        std::vector<platform::WindowPlacement> placements;  // of the window and its parents, where it has to wait
        std::int64_t sentAt = 0;                            // microseconds
    };

    static bool OnOneSpot(const Press& a, const Press& b);

    std::uint32_t pass = 0;
    Press next;
    std::optional<Press> last;
};
