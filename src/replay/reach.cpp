#include "replay/reach.h"

#include "dictionary/dictionary.h"
#include "identity/live_chain.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/window_services.h"

namespace {

constexpr std::int64_t DesktopAnswerHolds = 10'000;  // microseconds

struct DesktopAnswer {
    bool reachable = true;
    std::int64_t validUntil = -1;
} desktopAnswer;

}  // namespace

platform::WindowHandle WindowOf(Receiver receiver) {
    return receiver == Receiver::Keys ? platform::ForegroundWindow() : platform::WindowAt(platform::CursorPosition());
}

std::int32_t CheckReach(platform::WindowHandle window, std::string& reason) {
    if (window == 0 || platform::TakesOurInput(window)) return 1;
    LiveChain chain(window);
    reason = Translate1(
        "The window '%1' belongs to a program that runs as administrator, and Windows keeps input from it. Start "
        "Tessarine as administrator and run the job again.",
        LiveCaption(chain.Root()));
    return WindowOutOfReach;
}

bool DesktopReachable() {
    const std::int64_t now = platform::Microseconds();
    if (now >= desktopAnswer.validUntil) {
        desktopAnswer = {platform::InputReachesDesktop(), now + DesktopAnswerHolds};
    }
    return desktopAnswer.reachable;
}

std::string DesktopReason() {
    return Translate(
        "The desktop cannot be reached: the computer is locked, or Windows asks a question that only you can answer. "
        "Run the job again after that.");
}

std::int32_t CheckDesktop(std::string& reason) {
    if (DesktopReachable()) return 1;
    reason = DesktopReason();
    return DesktopOutOfReach;
}
