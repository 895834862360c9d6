// How a recording describes the window that an input was aimed at, so well that replay finds it again after a restart:
// a chain of signatures, from the window up to its top-level window. Owns the arrays that a recording fills, and knows
// the program's own windows, which are never recorded. CaptureWindow runs in the hooks and pumps; the rest does not.
#pragma once

#include <cstdint>
#include <vector>

#include "base/block_array.h"
#include "identity/chain_array.h"
#include "jobs/job_records.h"
#include "platform/types.h"

// The signatures and chains of the recording under way. Their sizes are the counts; the capacities only say when a
// recording wants to grow ahead of its need. `windows` may be appended to, but is replaced by ResetWindowArrays alone,
// which also tells the index over it. Neither moves what it holds when it grows.
struct WindowArrays {
    BlockArray<WindowSignature> windows;
    ChainArray chains;
    std::int32_t windowCapacity = 100;
    std::int32_t chainCapacity = 100;
    bool growWindows = false;  // less than 20 free
    bool growChains = false;   // nine tenths in use

    // The last top-level window that was seen to be another thread's, which it stays as long as its handle lives. Every
    // key asks for it, and in a hook each question to the system counts.
    platform::WindowHandle lastForeign = 0;
};
extern WindowArrays windowArrays;

// Begins a recording: empty, or with what an open job holds already. Capacities are the counts plus 100.
void ResetWindowArrays(const std::vector<WindowSignature>& windows = {}, const std::vector<WindowChain>& chains = {});

// The program's own windows, set by the forms; 0 while there is none.
struct OwnWindows {
    platform::WindowHandle main = 0;
    platform::WindowHandle replayStatus = 0;
    platform::WindowHandle recordingStatus = 0;
};
extern OwnWindows ownWindows;

// True for what is aimed at a box or a form of our own that is none of these, by the focus or by the cursor: that is no
// part of a recording at all, neither its press nor its release.
bool IsForOwnBox(bool byFocus);

// The window with the keyboard focus, of whatever program; the foreground window where its focus cannot be told, and
// our main window when the foreground is our own. 0 when there is no foreground window.
platform::WindowHandle FocusedWindow(platform::WindowHandle& foreground);

// What settles whether two placements are those of the same window. `stored` is the recorded one.
bool WindowPlacementsEqual(const platform::WindowPlacement& stored, const platform::WindowPlacement& current);

// Describes the window with the focus, or else the one under the cursor, in a new chain, and points the event at it.
// Returns the number of windows in the chain; 0, with nothing stored, for one of our own windows when not by focus.
// Keys typed into our own windows count as typed on the desktop.
//
// Pumps: another capture can run inside this one. Both then write the same free chain, the outer one last, both count
// it, and both events point at it. A range failure for a window more than 256 levels deep.
int CaptureWindow(JobEvent& event, bool byFocus);
