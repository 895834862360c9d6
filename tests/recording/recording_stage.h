// What a story of a recording is told with: a Notepad, our own main window and the tray on the simulated desktop, a
// recording under way, and a look at what it holds.
#pragma once

#include <map>

#include "identity/window_identity.h"
#include "platform/hooks.h"
#include "recording/input_capture.h"
#include "recording/recording_session.h"
#include "recording/recording_state.h"
#include "recording/recording_status.h"
#include "settings/settings.h"
#include "support/recording_view_stand_in.h"
#include "support/story.h"

inline constexpr int PauseBreak = 19;
inline constexpr int ScrollLockKey = 145;

class RecordingStage : public testing::Test {
protected:
    RecordingStage() {
        settings.Display_Recording_Window = 0;
        settings.Capture_Mouse_Moves = 1;
        tray = simulated::AddWindow({.className = "Shell_TrayWnd", .rect = {0, 984, 1280, 1024}, .active = false});
        desktop =
            simulated::AddWindow({.className = "Progman", .caption = "Program Manager", .rect = {0, 0, 1280, 984}});
        notepad = simulated::AddWindow(
            {.className = "Notepad", .caption = "Untitled - Notepad", .rect = {300, 200, 900, 700}});
        edit =
            simulated::AddWindow({.className = "Edit", .rect = {0, 0, 600, 500}, .parent = notepad, .controlId = 15});
        ownWindows.main = simulated::AddWindow({.className = "Form1",
                                                .caption = "Tessarine",
                                                .rect = {950, 100, 1250, 400},
                                                .thread = simulated::OwnThread});
        simulated::SetFocus(edit);
        recordingViewStandIn.saveAs = [this] { saved.push_back(RecordedJob()); };
    }

    void Start() {
        StartRecording();
        recordingViewStandIn.calls.clear();
    }

    // Ends it with the key and gives the job that the Save As form would save.
    Job Stop() {
        simulated::UserTaps(PauseBreak);
        platform::Pump();
        EXPECT_FALSE(RecordingActive());
        EXPECT_FALSE(saved.empty());
        return saved.empty() ? Job() : saved.back();
    }

    // Told right to the procedures, at the present moment.
    static void Key(std::uint32_t virtualKey, std::uint32_t flags) {
        KeyboardHookProc(HookAction, {0x100, virtualKey, 30, flags, 0, 7});
    }
    static void Mouse(std::uint32_t message, platform::Point point, std::uint32_t data = 0) {
        MouseHookProc({message, point, data << 16, 0, 0, 0});
    }

    static const JobEvent& Event(std::int32_t index) { return recordingSession.recordingEvents[index]; }
    static std::int32_t Newest() { return recordingSession.eventCount; }

    // The class of the window that an event was aimed at; "" for none.
    static std::string TargetOf(const JobEvent& event) {
        if (event.WindowChainIndex < 0) return "";
        const auto& chain = windowArrays.chains.at(static_cast<std::size_t>(event.WindowChainIndex));
        return windowArrays.windows.at(static_cast<std::size_t>(chain.LeafWindow)).ClassName;
    }

    // "Left down", "Move", "A down": what the events are, in short.
    static std::string NameOf(const JobEvent& event) {
        if (event.dwType() == platform::InputKeyboard) {
            const auto key = static_cast<char>(event.KeyCode() % 65536);
            return std::string(1, key) + (event.KeyState() >= 2 ? " up" : " down");
        }
        static const std::map<std::int32_t, std::string> names = {{0x8001, "Move"},     {0x8002, "Left down"},
                                                                  {0x8004, "Left up"},  {0x8008, "Right down"},
                                                                  {0x8010, "Right up"}, {221, "Double click"}};
        const auto name = names.find(event.dwFlags());
        return name != names.end() ? name->second : std::to_string(event.dwFlags());
    }
    static std::vector<std::string> NamesOf(const std::vector<JobEvent>& events) {
        std::vector<std::string> names;
        for (const JobEvent& event : events) names.push_back(NameOf(event));
        return names;
    }
    static std::vector<std::string> Captured() { return NamesOf(recordingSession.recordingEvents.First(Newest() + 1)); }

    platform::WindowHandle tray = 0;
    platform::WindowHandle desktop = 0;
    platform::WindowHandle notepad = 0;
    platform::WindowHandle edit = 0;
    std::vector<Job> saved;
};
