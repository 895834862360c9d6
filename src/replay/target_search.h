// The search for the window an event was recorded in. Pumps, sleeps, and returns only when the target is ready, the
// wait is over, or the user pressed ESC.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "jobs/job_records.h"
#include "platform/types.h"

// Results of FindTarget.
inline constexpr int TargetReady = 1;
inline constexpr int TargetCanceled = -2;
inline constexpr int TargetWindowMissing = -4;
inline constexpr int TargetElementMissing = -6;

// Results of MatchWindow.
inline constexpr int MatchAll = 3;    // class, caption, placement, parents
inline constexpr int MatchMoved = 2;  // all but the placement
inline constexpr int MatchClassOnly = 1;
inline constexpr int MatchNothing = 0;
inline constexpr int MatchOtherParents = -1;

// Recorded captions and the live ones that stood in for them, for one run. The first pair of a recorded caption holds.
struct CaptionAliasTable {
    std::vector<std::pair<std::string, std::string>> pairs;

    void Add(const std::string& recorded, const std::string& live);
    std::string Find(const std::string& recorded) const;  // "" for none
};

// A top-level window in which a recorded one was found, and how it stood when it was last put in place for that. (Some
// windows take only the places and sizes that they like.)
struct MetTop {
    std::int32_t signature = 0;
    platform::WindowHandle window = 0;
    std::optional<platform::WindowPlacement> placed;
};

struct SearchState {
    platform::WindowHandle current = 0;  // the live window under test; after a success, the window found
    std::string lastTopCaption;          // of the last successful search; kept for the life of the program
    platform::WindowHandle lastTop = 0;
    CaptionAliasTable CaptionAlias;
    std::array<bool, 10000> PositionedWindows{};  // by handle modulo 10000: put in place during this run
    std::vector<MetTop> metTops;                  // during this run
    std::int32_t rounds = 0;                      // of the last search
};
extern SearchState searchState;

// Forgets what belongs to one run; the start of the next.
void ResetSearch();

class SearchListener;

struct SearchRequest {
    std::int32_t speedPercent = 100;
    bool escHeld = false;
    std::int32_t chainIndex = 0;
    std::int32_t safetyLevel = SafetyHigh;
    bool similarAllowed = false;
    std::int32_t waitSeconds = 0;
    std::int64_t graceMs = 0;  // waited at least: what the run has caught up since it was late
    bool useFocus = false;     // keys, text rows and the wheel; clicks look under the cursor

    // A search that only looks does nothing to the desktop, pumps and waits for nothing, and leaves searchState as it
    // is. What it would do is taken to succeed, and the wait to be over after the first round. It looks at this point
    // of the desktop, where the cursor of a run would be.
    bool onlyLook = false;
    platform::Point point;

    // Hears the search, or those of its rounds alone after which it can fail.
    SearchListener* listener = nullptr;
    bool lastRoundsOnly = false;
};

// Makes sure that the window of the request's chain is what input will reach. `reason` is set with
// TargetWindowMissing (empty when the depth test gave up) and TargetElementMissing, else unchanged. A range failure
// for a chain that points outside its arrays.
int FindTarget(const SearchRequest& request, const std::vector<WindowSignature>& windows,
               const std::vector<WindowChain>& chains, std::string& reason);

// How well a live window matches the leaf of a chain. With `similar`, captions may match through CaptionAlias.
int MatchWindow(platform::WindowHandle window, std::int32_t chainIndex, const std::vector<WindowSignature>& windows,
                const std::vector<WindowChain>& chains, bool similar);

// The same windows all the way up: signatures are shared, so equal indexes mean equal identity.
bool SameChain(const WindowChain& a, const WindowChain& b);
