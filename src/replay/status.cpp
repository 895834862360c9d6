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
    status_view::MoveExecuting2(toTheLeft ? Margin : LeftAtRightEdge(status_view::Executing2Rectangle()));
    if (!status_view::ExecutingVisible()) return;
    status_view::MoveExecuting(toTheLeft ? Margin : LeftAtRightEdge(status_view::ExecutingRectangle()));
}
