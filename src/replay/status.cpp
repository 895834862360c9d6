#include "replay/status.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/input.h"
#include "platform/types.h"
#include "replay/status_view.h"

namespace {

constexpr std::int32_t Margin = 20;           // pixels to the edge of the screen
constexpr std::int64_t LeftSideTwips = 1000;  // a window that begins before this stands on the left
constexpr std::int64_t TwipsPerInch = 1440;

bool StandsOnTheRight(const platform::Rect& window) {
    return window.left * TwipsPerInch >= LeftSideTwips * status_view::PixelsPerInch();
}

bool Holds(const platform::Rect& window, const platform::Point& point) {
    return window.left <= point.x && point.x < window.right && window.top <= point.y && point.y < window.bottom;
}

// On a narrow screen both places of a window can lie under the pointer. It would then dodge for ever.
bool StaysUnderThePointer(const platform::Rect& window, std::int32_t newLeft) {
    const platform::Rect there = {newLeft, window.top, newLeft + window.right - window.left, window.bottom};
    const platform::Point pointer = platform::CursorPosition();
    return Holds(window, pointer) && Holds(there, pointer);
}

std::int32_t LeftAtRightEdge(const platform::Rect& window) {
    return platform::ScreenSize().width - (window.right - window.left) - Margin;
}

}  // namespace

void setStatus(int code, const std::string& text) {
    switch (code) {
        case StatusRunning:
            status_view::SetStatusLabel(actionWords.executingJob + "...");
            break;
        case StatusWebPage:
            status_view::SetStatusLabel(Translate("Waiting for web page to load..."));
            break;
        case StatusFinished:
            status_view::SetStatusLabel(Translate("Finished"));
            break;
        case StatusCanceled:
            status_view::SetStatusLabel(Translate("Canceled"));
            break;
        case StatusWaitingForWindow:
            status_view::SetStatusLabel(LabelOf(actionWords.waitingForWindow) + LineBreak + text);
            break;
        default:  // StatusFailed too: the list tells of a failure, the label keeps what it said
            break;
    }
}

void Premjesti(bool force) {
    const bool toTheLeft = !force && StandsOnTheRight(status_view::Executing2Rectangle());
    const auto newLeft = [&](const platform::Rect& window) { return toTheLeft ? Margin : LeftAtRightEdge(window); };
    const platform::Rect executing2 = status_view::Executing2Rectangle();
    const platform::Rect executing = status_view::ExecutingRectangle();
    const bool both = status_view::ExecutingVisible();
    if (!force && (StaysUnderThePointer(executing2, newLeft(executing2)) ||
                   (both && StaysUnderThePointer(executing, newLeft(executing))))) {
        return;
    }
    status_view::MoveExecuting2(newLeft(executing2));
    if (both) status_view::MoveExecuting(newLeft(executing));
}
