// The status windows of a program that shows none, so that a benchmark measures the loop and not the windows.
#pragma once

struct SilentStatusView {
    void (*onMouseEvent)() = nullptr;  // the loop asks after executing2 once for every mouse event
};
extern SilentStatusView silentStatusView;
