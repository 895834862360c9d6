// What a run tells of itself while it goes on, to whoever makes a report of it. Nothing here changes the run; without a
// listener it costs a look at a pointer. Rows are counted from 0, in the order of the action list; times are
// milliseconds since the pass began.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class RunListener {
public:
    virtual ~RunListener() = default;

    // The lines of the action list, numbered, without a verdict.
    virtual void PassBegins(std::int32_t /*pass*/, const std::vector<std::string>& /*rows*/) {}

    // The first input of the row is about to be sent. At maximum speed it is due when its turn comes.
    virtual void RowIsSent(std::size_t /*row*/, double /*due*/, double /*sent*/) {}

    // A window was looked for: how long, in how many rounds, and the result of FindTarget.
    virtual void Searched(std::size_t /*row*/, double /*ms*/, std::int32_t /*rounds*/, std::int32_t /*result*/) {}

    // At the very moment: the desktop is as it was when the check or the sending failed.
    virtual void RowFails(std::size_t /*row*/, const std::string& /*reason*/) {}

    // With the verdict that the action list shows.
    virtual void RowEnds(std::size_t /*row*/, bool /*good*/) {}

    // With the result of RunJob, and why when it is below 1.
    virtual void RunEnds(std::int32_t /*result*/, const std::string& /*reason*/) {}
};

// For the next run; not owned, null for none.
extern RunListener* runListener;
