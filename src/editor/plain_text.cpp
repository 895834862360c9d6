#include "editor/plain_text.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/keystroke_box.h"
#include "editor/keystroke_view.h"
#include "hotkeys/hotkey_table.h"
#include "keystrokes/notation.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/guard.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "recording/recording_state.h"
#include "replay/run_job.h"
#include "replay/send_keystrokes.h"
#include "replay/timing.h"

PlainText plainText;

namespace {

constexpr int RestMs = 250;
constexpr int LongestHoldMs = 1500;
constexpr int HoldPollMs = 10;
constexpr std::array<int, 5> Modifiers = {16, 17, 18, 91, 92};  // Shift, Ctrl, Alt, both Windows keys
constexpr std::array<int, 3> Toggles = {20, 144, 145};          // Caps, Num and Scroll Lock

bool IsShown() {
    return keystrokeBox.enabled && keystrokeBox.view == KeystrokeView::PlainText;
}

bool Holds(const std::string& token, const char* part) {
    return token.find(part) != std::string::npos;
}

// Function keys, Tab and ESC work on forms, the others open menus of the system. What is no token can't be sent.
bool IsHarmless(const std::string& token) {
    const bool leads = token.starts_with("{F") || token.starts_with("{TAB") || token.starts_with("{ESC");
    return !leads && !Holds(token, "WINKEY") && !Holds(token, "MENUKEY") && TokenCount(token) == 1;
}

// With Alt still down from the letter that chose the view, each key would be another one.
void WaitForModifiers() {
    const std::int64_t latest = platform::TickCount() + LongestHoldMs;
    for (const int key : Modifiers) {
        while (platform::AsyncKeyState(key) < 0 && platform::TickCount() < latest) {
            platform::Sleep(HoldPollMs);
            platform::Pump();
        }
    }
}

bool IsOn(int toggle) {
    return (platform::KeyState(toggle) & 1) != 0;
}

void Tap(int key) {
    bool escHeld = true;  // the user's ESC has no part in this
    SendKeystrokes(KeyNameFromCode(key), {}, escHeld);
}

// What the typing must not do to the rest: start jobs by their hotkeys, leave a key down or Caps Lock changed, also
// when it ends by a failure or the process is killed in the middle of it.
class Precautions {
public:
    Precautions() {
        for (std::size_t i = 0; i < Toggles.size(); ++i) wasOn[i] = IsOn(Toggles[i]);
        platform::StartGuard();
        UnregisterAllHotkeys();
        EscapePressed(true);  // a mark from before is not meant for this
    }
    ~Precautions() {
        ReleaseStuckKeys();
        platform::Pump();
        for (std::size_t i = 0; i < Toggles.size(); ++i) {
            if (IsOn(Toggles[i]) != wasOn[i]) Tap(Toggles[i]);
        }
        RegisterAllHotkeys();
    }
    Precautions(const Precautions&) = delete;
    Precautions& operator=(const Precautions&) = delete;

private:
    std::array<bool, Toggles.size()> wasOn{};
};

// Save and Close are disabled for as long as it lives.
class Playing {
public:
    Playing() {
        plainText.playingPlainText = true;
        plainText.outdated = false;
        edit_view::Refresh();
    }
    ~Playing() {
        plainText.playingPlainText = false;
        edit_view::Refresh();
    }
    Playing(const Playing&) = delete;
    Playing& operator=(const Playing&) = delete;
};

// 1 or more when the text goes on.
std::int32_t SendToken(const std::string& token) {
    bool escHeld = false;
    const KeystrokeGuard guard{[] { return keystroke_view::PlainTextHasKeyboard() ? TextStep::GoOn : TextStep::Stop; },
                               nullptr};
    return SendKeystrokes(token, {}, escHeld, guard);
}

bool MayGoOn() {
    return IsShown() && !plainText.outdated && keystroke_view::PlainTextHasKeyboard();
}

void Play() {
    const Playing playing;
    keystroke_view::ClearPlainText();
    keystroke_view::FocusPlainText();
    platform::Pump();
    const Precautions precautions;
    WaitForModifiers();
    SendKeysWithoutFunctionKeys(keystrokeBox.text);
}

void StopRefill() {
    platform::StopTimer(plainText.refill);
    plainText.refill = 0;
}

void Refill() {
    if (plainText.playingPlainText) return;  // about to end; the next tick comes
    ShowPlainText();
    if (keystroke_view::PlainTextHasKeyboard()) keystroke_view::FocusGrid();
}

}  // namespace

void ShowPlainText() {
    if (plainText.playingPlainText) return RefillPlainText();
    StopRefill();
    if (IsShown() && !runState.ReplayRunning && !RecordingActive()) Play();
}

void RefillPlainText() {
    StopRefill();
    plainText.outdated = true;
    plainText.refill = platform::StartTimer(RestMs, Refill);
}

void EndPlainText() {
    StopRefill();
    plainText.outdated = true;
}

void SendKeysWithoutFunctionKeys(const std::string& text) {
    for (const TokenSpan& span : SpansOf(text)) {
        if (!MayGoOn()) return;
        const std::string token =
            text.substr(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
        if (!IsHarmless(token)) {
            keystroke_view::AppendPlainText(token);
        } else if (SendToken(token) < 1) {
            return platform::Pump();
        }
        platform::Pump();
    }
}

bool plain_text_KeyPress() {
    if (plainText.playingPlainText) return true;
    platform::CallOutsideHooks([] {
        platform::ShowBox(Translate1("If you want to edit keystrokes click on '%1' button. This field is only for "
                                     "displaying keystrokes as text.",
                                     Translate("Edit Keystrokes")),
                          Translate("Edit Keystrokes"), platform::BoxIcon::Information);
    });
    return false;
}
