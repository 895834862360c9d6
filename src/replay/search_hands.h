// Everything that a search does, apart from looking: it places windows, brings them forward, waits. A search that only
// looks has its hands held: nothing is done and nobody waits, what it would do is taken to succeed, and a clock of its
// own runs through the pauses. That is a flag in the hands and not a search of its own, so that both kinds go the same
// way.
#pragma once

#include <cstdint>
#include <string>

#include "platform/clock.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "replay/search_listener.h"
#include "replay/status.h"
#include "replay/timing.h"
#include "replay/top_choice.h"
#include "settings/settings.h"
#include "trace/debug_trace.h"

class SearchHands {
public:
    explicit SearchHands(bool onlyLook) : held(onlyLook) {}

    bool Held() const { return held; }
    void ToldTo(HeardBy to) { listener = to; }

    std::int64_t Now() const { return held ? pretendedTime : platform::TickCount(); }
    void Sleep(int ms) {
        if (held) {
            pretendedTime += ms;
        } else {
            platform::Sleep(ms);
        }
    }
    void Pump() const {
        if (!held) platform::Pump();
    }
    void Trace(const char* text) const {
        if (!held) DebugTrace(text);  // which pumps
    }
    void ShowStatus(int code, const std::string& text = {}) const {
        if (!held && settings.Display_Executing_Status == 1) setStatus(code, text);
    }
    // Asking takes a tap of the key away from whoever asks next.
    bool EscapePressed(bool escHeld) const { return !held && ::EscapePressed(escHeld); }

    bool Place(platform::WindowHandle window, const platform::WindowPlacement& placement) const {
        if (listener != nullptr) TellPlace(window, placement);
        return held || platform::SetPlacement(window, placement);
    }
    bool BringForward(platform::WindowHandle window) const {
        Tell(SearchAct::BringForward, window);
        return held || platform::BringToForeground(window);
    }
    void GiveFocus(platform::WindowHandle window) const {
        Tell(SearchAct::Focus, window);
        if (!held) platform::GiveFocus(window);
    }

private:
    void TellPlace(platform::WindowHandle window, const platform::WindowPlacement& placement) const {
        const platform::WindowPlacement standing = platform::PlacementOf(window);
        const bool minimise = placement.showCmd == platform::ShowMinimized;
        if (standing.rcNormalPosition == placement.rcNormalPosition &&
            ShowStateOf(standing) == ShowStateOf(placement)) {
            return;
        }
        Tell(minimise ? SearchAct::Minimise : SearchAct::Place, window);
    }
    void Tell(SearchAct act, platform::WindowHandle window) const {
        if (listener != nullptr) listener->Acts(act, window);
    }

    const OnlyLooks held;
    HeardBy listener = nullptr;
    std::int64_t pretendedTime = 0;  // ms
};
