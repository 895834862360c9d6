// The forms of a recording, as a test sees them: the status form (with a window on the simulated desktop, so that
// clicks on it are clicks on one of our own), the dialogs before, the Save As form and the editor behind.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/types.h"

struct RecordingViewStandIn {
    std::vector<std::string> calls;  // of all the views, in order: "HideMainWindow", "Show", "ShowSaveAs", ...

    // `recording`
    std::function<void()> onLoad;
    bool loaded = false;
    bool shown = false;
    platform::WindowHandle window = 0;
    platform::WindowHandle command1 = 0;
    platform::WindowHandle command2 = 0;
    std::string command1Caption;
    std::string command2Caption;
    std::string label1;
    std::string info;
    std::string time;
    bool indicator = true;

    // `start_app` and the box before a recording
    std::function<void()> startApp;
    bool userIsReady = true;
    std::string question;

    // `counter`
    std::uint32_t screenColour = 0;
    std::size_t pixelsRead = 0;
    bool digitsBlack = false;
    std::vector<std::pair<std::int64_t, int>> numbers;  // moment, number

    // everything above a recording
    bool runUnderWay = false;
    bool mainWindowVisible = true;
    std::function<void()> saveAs;
    std::function<void()> editor;
    std::function<std::string()> recover;
};
extern RecordingViewStandIn recordingViewStandIn;
