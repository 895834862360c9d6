// The forms of a recording in a program that shows none.
#pragma once

#include <functional>

struct SilentRecordingView {
    std::function<void()> onSaveAs;
};
extern SilentRecordingView silentRecordingView;
