// Why a search found a window or did not: what was recorded, every window that the search looked at with what became of
// it, and the sentence that a person wants. A plain value, put together by listening to the search. Nothing here pumps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jobs/job_records.h"
#include "replay/search_listener.h"
#include "replay/target_search.h"

// Results of an explanation beside those of FindTarget and of reach.h.
inline constexpr int NothingLookedFor = 0;  // the row goes to no window, or the safety level is low

// A live window and the recorded one of a level. One of them is missing where the other chain is longer.
struct LevelComparison {
    std::int32_t level = 0;  // of the recorded chain: 0 is the window itself; above its last, live windows go on
    std::optional<WindowSignature> recorded;
    std::optional<WindowSignature> live;
    LevelMatch equal;  // as the search compares; the control's number is told, but no part of it
};

struct Candidate {
    platform::WindowHandle window = 0;
    SearchStep step = SearchStep::LiveWindow;
    Fate fate = Fate::Taken;
    std::int32_t liveDepth = -1;          // where its chain ends, when that is why it was dropped
    std::string otherTitle;               // of what gets the input in its place
    std::vector<LevelComparison> levels;  // the window itself first
};

struct SearchedAct {
    SearchAct act = SearchAct::Place;
    platform::WindowHandle window = 0;
};

struct Explanation {
    std::string row;                // of the job, in words; may be empty
    int result = NothingLookedFor;  // 1 or more: the input may go
    std::string reason;             // as the run tells it; may be empty
    bool onlyLooked = false;        // nothing was done; `acts` is what a run would do
    bool useFocus = false;          // keys and the wheel
    bool similarAllowed = false;    // captions
    bool similarTried = false;      // the wait was over, so that they counted
    std::int32_t safetyLevel = SafetyHigh;
    std::int32_t waitSeconds = 0;
    std::vector<WindowSignature> recorded;  // the window itself first
    std::vector<Candidate> candidates;      // of the last round, in the order in which they were looked at
    std::size_t othersLookedAt = 0;         // elements of another class: there can be thousands
    std::vector<SearchedAct> acts;
    platform::WindowHandle found = 0;
};

// Puts an explanation together. One can hear any number of searches, one after the other.
class Explainer : public SearchListener {
public:
    void RoundBegins(const SearchRequest& request, const WantedChain& wanted, bool similar) override;
    void Looked(const LookedAt& window) override;
    void Acts(SearchAct act, platform::WindowHandle window) override;
    void Ended(int result, platform::WindowHandle found) override;

    // Forgets the search before.
    void Reset() { explanation = {}; }

    const Explanation& Heard() const { return explanation; }

private:
    Explanation explanation;
};

// What a search for the window of this request would do now, without doing anything of it. In the middle of a run, what
// the run knows of windows counts; see Explain for the beginning of one. Indexes that lead nowhere are range failures.
Explanation ExplainRequest(SearchRequest request, const std::vector<WindowSignature>& windows,
                           const std::vector<WindowChain>& chains);

// What a run of this job that came to this event would find now. Sends nothing, moves nothing, and waits for nothing.
// A range failure for an event or an index that leads nowhere.
Explanation Explain(const Job& job, std::int32_t event);

// The same for a row of the editor or of a run, by its events: that of the first of them that looks for a window.
Explanation Explain(const Job& job, std::int32_t firstEvent, std::int32_t lastEvent);

// The request of a run for the window of an event.
SearchRequest RequestFor(const JobHeader& job, const JobEvent& event, bool useFocus);

// The last failed search of the run under way, or else of the last run; nullptr for none.
const Explanation* LastFailedSearch();
void KeepFailedSearch(const Explanation& explanation);
void ForgetFailedSearch();
