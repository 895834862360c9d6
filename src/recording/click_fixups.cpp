#include "recording/click_fixups.h"

#include <cstdlib>

#include "identity/window_identity.h"
#include "platform/boxes.h"
#include "recording/recording_session.h"
#include "trace/debug_trace.h"

ClickPairing clickPairing;

namespace {

constexpr std::int32_t MoveFlags = MouseFlagBase + platform::MouseMove;
constexpr std::int32_t LeftDownFlags = MouseFlagBase + platform::MouseLeftDown;
constexpr std::int32_t LeftUpFlags = MouseFlagBase + platform::MouseLeftUp;
static_assert(FirstHalfFlags == -LeftDownFlags);

constexpr std::int32_t ScrollLock = 145;
constexpr std::int64_t FarthestSecondClick = 1;  // pixels, the two directions added up

// No fold is under way; else the state is the number of events dropped since its head.
constexpr int NoFold = -1;
constexpr int WholeFold = 3;  // release, second press, second release

bool AreDoubleClick(const JobEvent& first, const JobEvent& second, std::int32_t doubleClickTime) {
    const std::int64_t distance =
        std::abs(std::int64_t{first.dx()} - second.dx()) + std::abs(std::int64_t{first.dy()} - second.dy());
    return distance <= FarthestSecondClick && std::int64_t{second.time()} - first.time() <= doubleClickTime;
}

std::int32_t LeafOf(const JobEvent& event) {
    return windowArrays.chains.at(static_cast<std::size_t>(event.WindowChainIndex)).LeafWindow;
}

// The two presses need not have met the same window: a first click that opens a dialog under the cursor makes a double
// click with the next one. That is worth a trace and no more.
void TraceOtherWindow(const JobEvent first, const JobEvent second) {
    if (first.WindowChainIndex < 0 || second.WindowChainIndex < 0 || LeafOf(first) == LeafOf(second)) return;
    DebugTrace("Drugi Klik ID:");
    DebugTrace(" prviklikWindowID:");
    DebugTrace(" drugi klik WindowID:");
}

void BeginPair(std::int32_t eventIndex) {
    clickPairing.firstClickIndex = eventIndex;
    clickPairing.firstClickPending = true;
}

// The walk over the array that folds and converts.
class Repair {
public:
    void Run();

private:
    void Mend(JobEvent& event);
    void Fold(JobEvent& event);
    void Drop();
    void ConvertScrollLock(JobEvent& event);
    void PressScrollLock(JobEvent& event);

    std::int32_t skipped = 0;  // events left out so far
    int state = NoFold;
    bool advance = true;  // the event stays
};

void Repair::Run() {
    RecordingSession& session = recordingSession;
    std::int32_t i = 0;
    while (i + skipped < session.eventCount) {
        JobEvent event = session.recordingEvents[i + skipped];
        advance = true;
        Mend(event);
        session.recordingEvents[i] = event;
        if (advance) ++i;
    }
    session.eventCount -= skipped;
    if (session.eventCount > 0) session.recordingEvents.Trim(session.eventCount);
}

void Repair::Mend(JobEvent& event) {
    if (event.dwType() == platform::InputMouse) {
        Fold(event);
    } else if (event.dwType() == platform::InputKeyboard && event.KeyCode() % 65536 == ScrollLock) {
        ConvertScrollLock(event);
    }
}

// Swallows the release, the second press and the second release that follow a marked press. Moves between them stay,
// in their order, behind the double click.
void Repair::Fold(JobEvent& event) {
    if (event.dwFlags() == FirstHalfFlags) {
        if (state != NoFold) platform::ShowBox("ovo ne valja", "");
        event.dwFlags() = DoubleClickFlags;
        state = 0;
    } else if (state == NoFold) {
        return;
    } else if (event.dwFlags() == LeftUpFlags) {
        Drop();
        if (state == WholeFold) state = NoFold;
    } else if (event.dwFlags() == LeftDownFlags) {
        Drop();
        // Two releases are missing. The state is left as it is and climbs on: from here every left press and release
        // of the recording is dropped, as the alarm says.
        if (state == WholeFold) platform::ShowBox("ovo fakat ne valja", "");
    }
}

void Repair::Drop() {
    ++skipped;
    ++state;
    advance = false;
}

// A left press or release without a place and without a window. Its time is lost, too: a key has it in the word that
// is cleared for the mouse data before it is read. Jobs have such events at time zero, at the moment of the key.
void Repair::ConvertScrollLock(JobEvent& event) {
    const bool released = event.KeyState() != 0;
    event.dwType() = platform::InputMouse;
    event.WindowChainIndex = NoWindowMarker;
    event.dx() = 0;
    event.dy() = 0;
    event.mouseData() = 0;
    event.mouseTime() = event.mouseData();
    if (!released) return PressScrollLock(event);
    DebugTrace("i:  zamjenjen u leftUP");
    event.dwFlags() = LeftUpFlags;
    recordingSession.scrollLockLeftDown = false;
}

void Repair::PressScrollLock(JobEvent& event) {
    event.dwFlags() = LeftDownFlags;
    if (recordingSession.scrollLockLeftDown) {  // auto-repeat
        ++skipped;
        advance = false;
        return;
    }
    DebugTrace("i:  zamjenjen u leftDOWN");
    recordingSession.scrollLockLeftDown = true;
}

}  // namespace

void ClearClickPairing() {
    PairClick(0, 0, 0, 0, true);
}

// The rectangle that the system uses for its own double clicks plays no part.
void PairClick(std::int32_t eventIndex, std::int32_t doubleClickTime, std::int32_t, std::int32_t, bool reset) {
    if (reset) {
        clickPairing.firstClickPending = false;
        clickPairing.lastMovePending = false;
        return;
    }
    const JobEvent& event = recordingSession.recordingEvents[eventIndex];
    if (event.dwType() != platform::InputMouse) return;
    clickPairing.lastMovePending = event.dwFlags() == MoveFlags;
    if (clickPairing.lastMovePending) clickPairing.lastMoveIndex = eventIndex;
    // Releases and other buttons neither start nor end a pair: a right click between two left ones changes nothing.
    if (event.dwFlags() != LeftDownFlags) return;
    if (!clickPairing.firstClickPending) return BeginPair(eventIndex);
    JobEvent& first = recordingSession.recordingEvents[clickPairing.firstClickIndex];
    if (!AreDoubleClick(first, event, doubleClickTime)) return BeginPair(eventIndex);
    // Done before the trace, which pumps: another press that comes in there must find this pair closed.
    first.dwFlags() = -first.dwFlags();
    clickPairing.firstClickPending = false;
    TraceOtherWindow(first, event);
}

void RepairClicks() {
    Repair().Run();
}
