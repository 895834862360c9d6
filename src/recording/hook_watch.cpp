#include "recording/hook_watch.h"

#include <algorithm>

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/tray.h"
#include "recording/recording_session.h"
#include "recording/recording_view.h"

HookWatch hookWatch;

namespace {

// The system's stamp on an input may be later than the hook call for it by as long as the hooks of all programs
// together take, a second at the most for each of them.
constexpr std::int64_t GraceMs = 2000;
constexpr std::int64_t ConfirmMs = 500;
constexpr std::int64_t FirstPauseMs = 5000;
constexpr std::int64_t LongestPauseMs = 60'000;

bool InputWentUnheard() {
    return platform::LastInputTick() > hookWatch.lastCall + GraceMs;
}

// True when it was so in an earlier tick already.
bool StillSilent(std::int64_t now) {
    if (hookWatch.silentSince == 0) hookWatch.silentSince = now;
    return now - hookWatch.silentSince >= ConfirmMs;
}

void TellOnce() {
    if (hookWatch.told) return;
    hookWatch.told = true;
    recording_view::SetInfo(HookNotice());
    platform::ChangeTrayTip(HookNotice() + LineBreak + RecordingTip);
}

void PutHooksInAgain(std::int64_t now) {
    InstallRecordingHooks();
    hookWatch.pause = hookWatch.heard ? FirstPauseMs : std::clamp(hookWatch.pause * 2, FirstPauseMs, LongestPauseMs);
    hookWatch.nextTry = now + hookWatch.pause;
    hookWatch.lastCall = now;
    hookWatch.silentSince = 0;
    hookWatch.heard = false;
}

}  // namespace

void ResetHookWatch() {
    hookWatch = {};
}

void StartHookWatch() {
    hookWatch.lastCall = platform::TickCount();
}

void NoteHookCall() {
    hookWatch.lastCall = platform::TickCount();
    hookWatch.heard = true;
}

void WatchHooks() {
    const std::int64_t now = platform::TickCount();
    if (!InputWentUnheard()) {
        hookWatch.silentSince = 0;
        return;
    }
    if (!StillSilent(now)) return;
    TellOnce();
    if (hookWatch.heard || now >= hookWatch.nextTry) PutHooksInAgain(now);
}

std::string HookNotice() {
    return Translate("Some actions may be missing. Please check the recording.");
}
