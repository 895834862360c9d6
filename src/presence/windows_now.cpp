#include "presence/windows_now.h"

#include <algorithm>
#include <set>
#include <utility>

#include "findings/job_links.h"
#include "findings/row_numbers.h"
#include "identity/live_chain.h"
#include "jobs/event_targets.h"
#include "platform/machine.h"
#include "replay/explanation.h"
#include "replay/similar_caption.h"
#include "replay/top_choice.h"

namespace {

class Look {
public:
    explicit Look(const Job& lookedAt) : job(lookedAt), links(lookedAt), rows(lookedAt, false) {
        for (const platform::Monitor& monitor : platform::Monitors()) monitors.push_back(monitor.place);
    }

    DesktopNow Run();

private:
    void LookAt(const JobEvent& event, std::int32_t row);
    void Choose(WindowNow& window, std::int32_t chain) const;
    bool IsOnMonitor(const platform::Rect& place) const;

    const Job& job;
    const JobLinks links;
    const RowNumbers rows;
    std::vector<platform::Rect> monitors;
    std::set<std::pair<std::string, std::string>> seen;
    DesktopNow now;
};

bool Overlap(const platform::Rect& a, const platform::Rect& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

DesktopNow Look::Run() {
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(job.Events.size()); ++i) {
        const JobEvent& event = job.Events[static_cast<std::size_t>(i)];
        if (LooksForWindow(event) && links.IsGood(event.WindowChainIndex)) LookAt(event, i);
    }
    return std::move(now);
}

void Look::LookAt(const JobEvent& event, std::int32_t index) {
    const platform::Rect point{event.dx(), event.dy(), event.dx() + 1, event.dy() + 1};
    if (IsButtonPress(event) && !IsOnMonitor(point)) {
        const std::int32_t row = rows.NumberOf(index);
        if (now.rowsOffMonitors.empty() || now.rowsOffMonitors.back() != row) now.rowsOffMonitors.push_back(row);
    }
    if (job.SafetyLevel != SafetyHigh && job.SafetyLevel != SafetyMedium) return;
    const WindowSignature& top = links.TopOf(event.WindowChainIndex);
    if (!seen.insert({top.ClassName, top.Caption}).second) return;
    WindowNow& window = now.windows.emplace_back();
    window.row = rows.NumberOf(index);
    window.title = top.Caption;
    window.className = top.ClassName;
    Choose(window, event.WindowChainIndex);
    window.isOnMonitor = IsOnMonitor(top.Placement.rcNormalPosition);
}

// As a run does that has not met any window yet.
void Look::Choose(WindowNow& window, std::int32_t chain) const {
    const WantedChain wanted(chain, job.Windows, job.Chains);
    bool several = false;
    if (const platform::WindowHandle top = ChooseTop(window.className, window.title, wanted, several)) {
        window.presence = WindowPresence::There;
        window.titleNow = LiveCaption(top);
        return;
    }
    if (several) window.presence = WindowPresence::Several;
    if (several || job.SimilarWindowNames != 1) return;
    const SimilarWindow similar = FindSimilarWindow(window.className, window.title);
    if (similar.window == 0) return;
    window.presence = WindowPresence::Similar;
    window.titleNow = similar.caption;
}

// What has no extent was recorded without a place.
bool Look::IsOnMonitor(const platform::Rect& place) const {
    if (place.right <= place.left || place.bottom <= place.top) return true;
    return std::ranges::any_of(monitors, [&](const platform::Rect& monitor) { return Overlap(monitor, place); });
}

std::string NameOf(const WindowNow& window) {
    return window.title.empty() ? "without a title (" + window.className + ")" : "'" + window.title + "'";
}

}  // namespace

DesktopNow CheckWindowsNow(const Job& job) {
    return Look(job).Run();
}

std::string SentenceOf(const WindowNow& window) {
    std::string sentence = "The window " + NameOf(window);
    switch (window.presence) {
        case WindowPresence::There:
            sentence += " is there";
            break;
        case WindowPresence::Similar:
            sentence += " is not there; '" + window.titleNow + "' would be taken for it";
            break;
        case WindowPresence::Several:
            sentence += " is there more than once, and none stands where it was recorded";
            break;
        case WindowPresence::Missing:
            sentence += " is not there";
            break;
    }
    if (!window.isOnMonitor) sentence += "; its recorded place is on no monitor";
    return sentence + ".";
}
