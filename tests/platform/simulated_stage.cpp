// The contract's stage in memory.
#include <map>

#include "contract_desktop.h"
#include "platform/clock.h"
#include "simulated/desktop.h"
#include "simulated/files.h"

namespace contract {
namespace {

std::uint32_t lastThread = 100;
std::map<WindowHandle, int> clicks;
std::map<WindowHandle, std::vector<int>> hotkeys;

WindowHandle AddTo(std::uint32_t thread, const NewWindow& window) {
    const WindowHandle handle = simulated::AddWindow({.className = window.className,
                                                      .caption = window.caption,
                                                      .rect = window.rect,
                                                      .thread = thread,
                                                      .parent = window.parent,
                                                      .owner = window.owner,
                                                      .controlId = window.controlId,
                                                      .visible = window.visible,
                                                      .enabled = window.enabled});
    simulated::OnClick(handle, [handle] { ++clicks[handle]; });
    return handle;
}

}  // namespace

const Differences& Desktop() {
    static const Differences differences = {
        .clockIsReal = false, .hooksTellAltDown = true, .placesMinimised = true, .knowsAllCodePages = false};
    return differences;
}

std::vector<Rect> Monitors() {
    const std::vector<Rect> monitors = {{0, 0, 1280, 1024}, {1280, 200, 3200, 1280}, {-1024, -768, 0, 0}};
    simulated::SetMonitors(monitors);
    return monitors;
}

void SwapButtons(bool) {}  // nothing between SendInput and the hooks speaks of physical buttons here

struct OtherProgram::Inside {
    std::uint32_t thread = ++lastThread;
    std::vector<WindowHandle> windows;
};

OtherProgram::OtherProgram() : inside(std::make_unique<Inside>()) {}

OtherProgram::~OtherProgram() {
    for (const WindowHandle window : inside->windows) simulated::Destroy(window);
}

WindowHandle OtherProgram::Add(const NewWindow& window) {
    inside->windows.push_back(AddTo(inside->thread, window));
    return inside->windows.back();
}

void OtherProgram::Remove(WindowHandle window) {
    simulated::Destroy(window);
}

void OtherProgram::Rename(WindowHandle window, const std::string& caption) {
    simulated::SetCaption(window, caption);
}

void OtherProgram::Focus(WindowHandle window) {
    simulated::SetFocus(window);
}

std::string OtherProgram::TextOf(WindowHandle edit) {
    return simulated::TextOf(edit);
}

int OtherProgram::ClicksOn(WindowHandle window) {
    return clicks[window];
}

void OtherProgram::Hang() {
    for (const WindowHandle window : inside->windows) simulated::SetHung(window);
}

void OtherProgram::Nap(int ms) {
    Hang();
    simulated::MeanwhileAfter(ms, [windows = inside->windows] {
        for (const WindowHandle window : windows) simulated::SetHung(window, false);
    });
}

WindowHandle AddOwn(const NewWindow& window) {
    const WindowHandle handle = AddTo(simulated::OwnThread, window);
    simulated::OnMessage(handle, [handle](const simulated::Message& message) {
        if (message.message == 0x312) hotkeys[handle].push_back(static_cast<int>(message.wParam));
    });
    return handle;
}

void RemoveOwn(WindowHandle window) {
    simulated::Destroy(window);
}

std::vector<int> HotkeysAt(WindowHandle ownWindow) {
    return hotkeys[ownWindow];
}

void PostHotkeyTo(WindowHandle ownWindow, int id) {
    simulated::PostTo(ownWindow, {0x312, id, 0});
}

void SendHotkeyTo(WindowHandle ownWindow, int id) {
    simulated::SendToProgram(ownWindow, {0x312, id, 0});
}

bool Within(int ms, const std::function<bool()>& condition) {
    return simulated::RunUntil(condition, ms);
}

bool HasUser() {
    return true;
}

void UserTaps(int virtualKey) {
    simulated::UserTaps(virtualKey);
}

void OthersTap(int virtualKey) {
    simulated::UserTaps(virtualKey);
}

std::string BoxDuring(const std::function<void()>& act, bool yes) {
    simulated::AnswerNextBox({.yes = yes});
    act();
    if (simulated::ShownBoxes().empty()) return "";
    return simulated::ShownBoxes().back().title + "|" + simulated::ShownBoxes().back().text;
}

TestFolder::TestFolder() : path("C:\\contract") {
    simulated::PutFolder(path);
}

TestFolder::~TestFolder() {
    simulated::LosePath(path);
}

struct HeldFile::Inside {
    std::string path;
};

HeldFile::HeldFile(const std::string& path, Readers readers) : inside(std::make_unique<Inside>(Inside{path})) {
    readers == Readers::LetIn ? simulated::LockFile(path) : simulated::LockFileAgainstReaders(path);
}

HeldFile::~HeldFile() {
    simulated::LockFile(inside->path, platform::TickCount());
}

}  // namespace contract
