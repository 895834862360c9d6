#include "replay/timing.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/runtime_failure.h"
#include "platform/clock.h"
#include "platform/pump.h"
#include "replay/run_stop.h"
#include "replay/status_view.h"
#include "settings/settings.h"

HeldInput heldInput;

namespace {

constexpr std::int32_t SliceMs = 50;  // fine enough for ESC to feel immediate, coarse enough to cost nothing
constexpr std::int64_t MicrosecondsPerMs = 1000;
constexpr std::int32_t CapsLockTapMs = 20;

platform::InputRecord KeyboardRecord(int virtualKey, std::int32_t keyState) {
    platform::InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = platform::ScanCodeOf(virtualKey) * 65536 + virtualKey;
    record.KeyState() = keyState;
    return record;
}

constexpr std::int32_t Downs =
    platform::MouseLeftDown | platform::MouseRightDown | platform::MouseMiddleDown | platform::MouseXDown;
constexpr std::int32_t Ups = Downs << 1;  // every release flag follows its press flag

bool IsSameButton(const platform::InputRecord& press, std::int32_t downFlag, const platform::InputRecord& other) {
    if ((press.dwFlags() & downFlag) == 0) return false;
    return downFlag != platform::MouseXDown || press.mouseData() == other.mouseData();
}

void ReleaseButton(platform::InputRecord record) noexcept {
    record.dwFlags() = (record.dwFlags() & Downs) << 1;
    record.dx() = record.dy() = 0;
    try {
        platform::SendInput(record);
    } catch (...) {
        return;
    }
}

std::int32_t SlicesOf(std::int32_t ms) {
    return ms / SliceMs + 1;
}

// Feeds the progress bar in equal steps. It keeps the fraction that the bar cannot show.
class BarFeed {
public:
    BarFeed(std::int32_t ms, double share)
        : active(settings.Display_Executing_Status == 1 && share > 0),
          step(ms > SliceMs ? share / SlicesOf(ms) : 0),
          value(status_view::BarValue()) {}

    void Advance() {
        if (!active) return;
        value += step;
        const int maximum = status_view::BarMaximum();
        status_view::SetBar(value > maximum ? maximum : static_cast<int>(std::floor(value)));
    }

private:
    bool active;
    double step;
    double value;
};

}  // namespace

bool& KeyDownFlag(std::int32_t virtualKey) {
    return CheckedAt(heldInput.KeysDown, virtualKey, "Key code");
}

void MoveCursor(std::int32_t x, std::int32_t y) {
    heldInput.LastCursorPosition = {x, y};
    platform::MoveCursorTo({x, y});
}

// Every sleep ends at a moment and not after a span, so the slices' own lateness does not add up, and a pump that took
// long shortens the sleep behind it instead of carrying the wait past its end.
int TimedWait(std::int32_t ms, bool escHeld, double share) {
    const std::int64_t begin = platform::Microseconds();
    const std::int64_t end = begin + ms * MicrosecondsPerMs;
    const std::int64_t slice = SliceMs * MicrosecondsPerMs;
    BarFeed bar(ms, share);
    while (platform::Microseconds() < end - slice) {
        if (EscapePressed(escHeld)) return WaitCanceled;
        platform::Pump();
        platform::SleepUntil(std::min(platform::Microseconds() + slice, end));
        bar.Advance();
    }
    platform::SleepUntil(end);
    return WaitDone;
}

void RestoreCapsLock(std::int32_t state) {
    // The whole 16 bits count, not the toggle alone: Caps Lock held down just now is a difference too.
    if (platform::KeyState(platform::VirtualKeyCapital) == static_cast<std::int16_t>(state)) return;
    platform::SendInput(KeyboardRecord(platform::VirtualKeyCapital, 0));
    platform::Sleep(CapsLockTapMs);
    platform::SendInput(KeyboardRecord(platform::VirtualKeyCapital, platform::KeyUp));
}

void NoteButton(const platform::InputRecord& record) {
    const std::int32_t action = record.dwFlags() & ~platform::MouseAbsolute;
    if ((action & Downs) != 0) {
        std::erase_if(heldInput.presses, [&](const auto& press) { return IsSameButton(press, action, record); });
        heldInput.presses.push_back(record);
    } else if ((action & Ups) != 0) {
        std::erase_if(heldInput.presses, [&](const auto& press) { return IsSameButton(press, action >> 1, record); });
    }
}

// The last thing that stands between a broken run and a keyboard or mouse that seems stuck: whatever goes wrong with
// one key, the others still come up.
void ReleaseStuckKeys() noexcept {
    for (const platform::InputRecord& press : std::exchange(heldInput.presses, {})) ReleaseButton(press);
    for (int virtualKey = 0; virtualKey < KeyFlagCount; ++virtualKey) {
        bool& down = heldInput.KeysDown[static_cast<std::size_t>(virtualKey)];
        if (!down) continue;
        down = false;
        try {
            platform::SendInput(KeyboardRecord(virtualKey, platform::KeyUp));
            // Right Ctrl and right Alt are extended keys: the plain release may have been taken for that of the left.
            const bool stays = platform::AsyncKeyState(virtualKey) < 0;
            if (stays) platform::SendInput(KeyboardRecord(virtualKey, platform::KeyUp + platform::KeyExtended));
        } catch (...) {
            continue;
        }
    }
}

// The key is read in any case: reading takes away the mark of a tap, and the job's own must not be left for later.
bool EscapePressed(bool escHeld) {
    const bool pressed = platform::AsyncKeyState(platform::VirtualKeyEscape) != 0;
    return (pressed && !escHeld) || RunStopReason() != StopReason::None;
}
