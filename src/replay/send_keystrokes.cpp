#include "replay/send_keystrokes.h"

#include <cstddef>
#include <random>
#include <vector>

#include "keystrokes/notation.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "replay/reach.h"
#include "replay/status_view.h"
#include "replay/timing.h"
#include "sounds/key_sounds.h"
#include "trace/debug_trace.h"

namespace {

constexpr std::int32_t WheelNotch = 120;

// A sender that never pumps gets slower with its own backlog of injected input.
constexpr std::size_t TokensBetweenPumps = 16;

// A text compiled as a whole before its first key goes out.
struct CompiledText {
    std::vector<platform::InputRecord> records;
    std::vector<bool> extended;
};

// Title and text stand this way round on purpose: the title names the fault, the text is a number, and users of old
// jobs know the box like this. Returns the count of tokens, or 0 or less after the box.
int CompileOrTell(const std::string& text, CompiledText& compiled) {
    std::string message;
    const int count = CompileKeystrokes(text, compiled.records, compiled.extended, message);
    if (count < 1) platform::ShowBox(std::to_string(count), message, platform::BoxIcon::Error);
    return count;
}

// What a pause adds to the progress bar.
double ShareOf(std::int32_t pause, const KeystrokePacing& pacing) {
    if (pacing.totalMs <= 0) return 0;
    return static_cast<double>(status_view::BarMaximum()) * pause * pacing.speedPercent / (pacing.totalMs * 100.0);
}

std::int32_t PausePerToken(std::int32_t budgetMs, int count) {
    if (budgetMs >= 1) {
        DebugTrace("Spavanje: ");
        return budgetMs / count;
    }
    DebugTrace("NEMA SPAVANJA!!! :(");
    return 0;
}

void PlayRandomSound(bool soundsOn) {
    if (soundsOn && KeySoundCount() > 0) PlayKeySound(PickSound());
}

// Sends `record` as its state stands, plus 1 if the key is an extended one.
std::int32_t SendKey(platform::InputRecord record, bool extended) {
    if (extended) record.KeyState() += platform::KeyExtended;
    return platform::SendInput(record);
}

std::int32_t SendDown(platform::InputRecord record, bool extended, bool soundsOn) {
    KeyDownFlag(record.KeyCode() % 65536) = true;
    PlayRandomSound(soundsOn);
    record.KeyState() = 0;
    return SendKey(record, extended);
}

std::int32_t SendUp(platform::InputRecord record, bool extended) {
    KeyDownFlag(record.KeyCode() % 65536) = false;
    record.KeyState() = platform::KeyUp;
    return SendKey(record, extended);
}

// A bare {WHEEL} turns nothing.
std::int32_t SendWheelToken(std::int32_t action) {
    if (action == ActionDown) return SendWheel(-WheelNotch);
    if (action == ActionUp) return SendWheel(WheelNotch);
    return 0;
}

std::int32_t SendToken(const platform::InputRecord& record, bool extended, bool soundsOn) {
    const std::int32_t action = record.KeyState();
    if (record.KeyCode() % 65536 == WheelKey) return SendWheelToken(action);
    std::int32_t sent = 0;
    if (action != ActionUp) sent += SendDown(record, extended, soundsOn);
    if (action != ActionDown) sent += SendUp(record, extended);
    return sent;
}

// While the text holds ESC, it is not the user's. A press of ESC leaves its mark in the key's state although it is up
// again, and the next poll would take it for the user's cancel, so the mark is read away here.
void NoteEscape(const platform::InputRecord& record, bool& escHeld) {
    if (record.KeyCode() % 65536 != platform::VirtualKeyEscape) return;
    escHeld = record.KeyState() == ActionDown;
    EscapePressed(true);
}

bool Presses(const platform::InputRecord& record) {
    return record.KeyState() != ActionUp || record.KeyCode() % 65536 == WheelKey;
}

// Of a text that is left out, only the release of a key that is down.
bool IsOwed(const platform::InputRecord& record) {
    return !Presses(record) && KeyDownFlag(record.KeyCode() % 65536);
}

}  // namespace

std::int32_t SendKeystrokes(const std::string& text, const KeystrokePacing& pacing, bool& escHeld,
                            const KeystrokeGuard& guard) {
    CompiledText compiled;
    const int count = CompileOrTell(text, compiled);
    if (count < 1) return count;
    const std::int32_t pause = PausePerToken(pacing.budgetMs, count);
    std::int32_t sum = 0;
    bool leftOut = false;
    for (std::size_t i = 0; i < compiled.records.size(); ++i) {
        if (EscapePressed(escHeld)) return WaitCanceled;
        if (!DesktopReachable()) return DesktopOutOfReach;
        const platform::InputRecord& record = compiled.records[i];
        if (!leftOut && guard.beforePress && Presses(record)) {
            const TextStep step = guard.beforePress();
            if (step == TextStep::Stop) return 0;
            leftOut = step == TextStep::LeaveOut;
        }
        if (!leftOut || IsOwed(record)) {
            sum += SendToken(record, compiled.extended[i], pacing.soundsOn);
            NoteEscape(record, escHeld);
            if (guard.afterToken) guard.afterToken(record.KeyCode() % 65536, record.KeyState());
        }
        if (i % TokensBetweenPumps == TokensBetweenPumps - 1) platform::Pump();
        if (pause == 0) continue;
        if (const int waited = TimedWait(pause, escHeld, ShareOf(pause, pacing)); waited < 0) return waited;
    }
    return leftOut ? 0 : sum;
}

std::int32_t SendWheel(std::int32_t delta) {
    platform::InputRecord record;
    record.dwType() = platform::InputMouse;
    record.mouseData() = delta;
    record.dwFlags() = platform::MouseAbsolute + platform::MouseWheel;
    return platform::SendInput(record);
}

int PickSound() {
    const int count = KeySoundCount();
    if (count < 1) return 0;
    std::minstd_rand generator(static_cast<std::minstd_rand::result_type>(platform::Microseconds()));
    return std::uniform_int_distribution<int>(0, count - 1)(generator);
}
