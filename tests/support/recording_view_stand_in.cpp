#include "support/recording_view_stand_in.h"

#include "identity/window_identity.h"
#include "platform/clock.h"
#include "recording/counter_view.h"
#include "recording/recording_view.h"
#include "recording/session_view.h"
#include "recording/start_app_view.h"
#include "simulated/desktop.h"
#include "support/recorder.h"

RecordingViewStandIn recordingViewStandIn;

namespace {

RecordingViewStandIn& view = recordingViewStandIn;

void Note(const std::string& call) {
    view.calls.push_back(call);
}

platform::WindowHandle AddButton(std::int32_t left) {
    return simulated::AddWindow({.className = "Button",
                                 .rect = {left, 60, left + 80, 84},
                                 .thread = simulated::OwnThread,
                                 .parent = view.window});
}

}  // namespace

namespace recording_view {

void Load() {
    if (view.loaded) return;
    if (view.onLoad) view.onLoad();
    view.loaded = true;
    view.window = simulated::AddWindow({.className = "Form",
                                        .caption = "recording",
                                        .rect = {10, 10, 210, 110},
                                        .thread = simulated::OwnThread,
                                        .visible = false,
                                        .topmost = true,
                                        .active = false});
    view.command1 = AddButton(10);
    view.command2 = AddButton(100);
    ownWindows.recordingStatus = view.window;
}

void Show() {
    Note("Show");
    Load();
    view.shown = true;
    simulated::SetVisible(view.window, true);
    simulated::Activate(view.window);
}

void Unload() {
    Note("Unload");
    simulated::Destroy(view.window);
    view.loaded = view.shown = false;
    ownWindows.recordingStatus = view.window = 0;
}

KEEPS(SetCommand1, const std::string&, view.command1Caption)
KEEPS(SetCommand2, const std::string&, view.command2Caption)
KEEPS(SetLabel1, const std::string&, view.label1)
KEEPS(SetInfo, const std::string&, view.info)
KEEPS(SetTime, const std::string&, view.time)
KEEPS(ShowIndicator, bool, view.indicator)

}  // namespace recording_view

namespace start_app_view {

void ShowModal() {
    Note("start_app");
    if (view.startApp) view.startApp();
}

}  // namespace start_app_view

namespace counter_view {

ANSWERS(platform::Rect, Rectangle, (platform::Rect{500, 400, 600, 450}))

std::vector<std::uint32_t> ReadScreen(const std::vector<platform::Point>& points) {
    view.pixelsRead = points.size();
    return std::vector<std::uint32_t>(points.size(), view.screenColour);
}

NOTES_AS(view.calls, Show, "counter")
NOTES_AS(view.calls, Unload, "counter gone")
KEEPS(SetDigitsBlack, bool, view.digitsBlack)

void ShowNumber(int number) {
    view.numbers.emplace_back(platform::TickCount(), number);
}

}  // namespace counter_view

namespace session_view {

ANSWERS(bool, RunUnderWay, view.runUnderWay)
NOTES(view.calls, GiveHotkeys)
NOTES(view.calls, TakeHotkeys)

bool AskToStart(const std::string& text, const std::string&) {
    Note("AskToStart");
    view.question = text;
    return view.userIsReady;
}

ANSWERS(bool, MainWindowIsVisible, view.mainWindowVisible)
NOTES(view.calls, MinimiseMainWindow)

void HideMainWindow() {
    Note("HideMainWindow");
    view.mainWindowVisible = false;
    simulated::SetVisible(ownWindows.main, false);
}

void ShowMainWindow() {
    Note("ShowMainWindow");
    view.mainWindowVisible = true;
    simulated::SetVisible(ownWindows.main, true);
}

NOTES(view.calls, PutEditorAside)

void ZavrsiUmetanjeSnimanjem() {
    Note("ZavrsiUmetanjeSnimanjem");
    if (view.editor) view.editor();
}

void ShowSaveAs() {
    Note("ShowSaveAs");
    if (view.saveAs) view.saveAs();
}

std::string SaveRecovered(ListOfJobs list) {
    Note(list == ListOfJobs::Shown ? "SaveRecovered, shown" : "SaveRecovered");
    return view.recover ? view.recover() : "";
}

}  // namespace session_view
