// The contract's stage on the real desktop. Also the main function: the executable is the test and the puppet.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <map>
#include <sstream>
#include <thread>

#include "contract_desktop.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "puppet.h"
#include "win32/handles.h"

namespace contract {

std::string OwnPath() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    return path;
}

namespace {

using platform::FromHwnd;
using platform::OwnedHandle;
using platform::ToHwnd;

constexpr int FocusSettlesMs = 150;
constexpr int StagePatienceMs = 15'000;  // be the machine as busy as it may

int lastNumber = 0;
std::map<WindowHandle, std::vector<int>> hotkeys;

PROCESS_INFORMATION Start(std::string commandLine) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return {};
    }
    if (process.hThread != nullptr) CloseHandle(process.hThread);  // none for a program of Wine's host
    return process;
}

OrderData ToOrder(const NewWindow& window) {
    OrderData order;
    order.parent = ToHwnd(window.parent);
    order.owner = ToHwnd(window.owner);
    order.rect = {window.rect.left, window.rect.top, window.rect.right, window.rect.bottom};
    order.controlId = window.controlId;
    order.visible = window.visible;
    order.enabled = window.enabled;
    window.className.copy(order.className, sizeof order.className - 1);
    window.caption.copy(order.caption, sizeof order.caption - 1);
    return order;
}

}  // namespace

const Differences& Desktop() {
    static const bool wine = GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
    static const Differences differences = {
        .clockIsReal = true, .hooksTellAltDown = !wine, .placesMinimised = !wine, .knowsAllCodePages = true};
    return differences;
}

struct OtherProgram::Inside {
    // Under Wine a new process now and then never gets as far as its first window; another one does.
    Inside() {
        constexpr int Attempts = 3;
        for (int attempt = 0; attempt < Attempts && control == nullptr; ++attempt) {
            if (attempt > 0) End();
            StartAnew();
        }
        if (control == nullptr) ADD_FAILURE() << "the other program did not start";
    }

    ~Inside() {
        End();
        Within(StagePatienceMs, [&] { return !IsWindow(control); });
    }

    void StartAnew() {
        name = std::to_string(GetCurrentProcessId()) + "." + std::to_string(++lastNumber);
        std::ostringstream commandLine;
        commandLine << '"' << OwnPath() << "\" " << PuppetSwitch << ' ' << name << ' ' << GetCurrentProcessId();
        process = Start(commandLine.str());
        const auto appeared = [&] {
            control = FindWindowExA(HWND_MESSAGE, nullptr, PuppetClass, name.c_str());
            return control != nullptr;
        };
        Within(StagePatienceMs, appeared);
    }

    void End() const {
        TerminateProcess(process.hProcess, 0);
        WaitForSingleObject(process.hProcess, StagePatienceMs);
        CloseHandle(process.hProcess);
    }

    LRESULT Give(Order order, OrderData data) {
        COPYDATASTRUCT copied{static_cast<ULONG_PTR>(order), sizeof data, &data};
        DWORD_PTR result = 0;
        if (!SendMessageTimeoutA(control, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&copied), 0, StagePatienceMs,
                                 &result)) {
            ADD_FAILURE() << "the other program did not answer";
        }
        return static_cast<LRESULT>(result);
    }

    LRESULT Give(Order order, WindowHandle window) {
        OrderData data;
        data.window = ToHwnd(window);
        return Give(order, data);
    }

    std::string name;
    PROCESS_INFORMATION process{};
    HWND control = nullptr;
};

OtherProgram::OtherProgram() : inside(std::make_unique<Inside>()) {}
OtherProgram::~OtherProgram() = default;

WindowHandle OtherProgram::Add(const NewWindow& window) {
    const WindowHandle added = inside->Give(Order::Add, ToOrder(window));
    EXPECT_NE(added, 0);
    if (window.parent == 0 && window.visible)
        Within(StagePatienceMs, [&] { return platform::ForegroundWindow() == added; });
    return added;
}

void OtherProgram::Remove(WindowHandle window) {
    inside->Give(Order::Remove, window);
}

void OtherProgram::Rename(WindowHandle window, const std::string& caption) {
    OrderData data;
    data.window = ToHwnd(window);
    caption.copy(data.caption, sizeof data.caption - 1);
    inside->Give(Order::Rename, data);
}

void OtherProgram::Focus(WindowHandle window) {
    inside->Give(Order::Focus, window);
    const std::uint32_t thread = platform::ThreadOf(window);
    EXPECT_TRUE(Within(StagePatienceMs, [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(thread, &info) && info.hwndFocus == ToHwnd(window);
    }));
}

std::string OtherProgram::TextOf(WindowHandle edit) {
    char text[1100] = "";
    DWORD_PTR length = 0;
    SendMessageTimeoutA(ToHwnd(edit), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), 0, StagePatienceMs,
                        &length);
    return text;
}

int OtherProgram::ClicksOn(WindowHandle window) {
    return static_cast<int>(reinterpret_cast<ULONG_PTR>(GetPropA(ToHwnd(window), ClicksProperty)));
}

void OtherProgram::Nap(int ms) {
    OrderData data;
    data.ms = static_cast<DWORD>(ms);
    inside->Give(Order::Nap, data);
}

void OtherProgram::Hang() {
    Nap(static_cast<int>(INFINITE));
    // It hangs when it no longer answers.
    Within(StagePatienceMs, [&] {
        DWORD_PTR result = 0;
        return SendMessageTimeoutA(inside->control, WM_NULL, 0, 0, 0, 50, &result) == 0;
    });
}

namespace {

LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HOTKEY) hotkeys[FromHwnd(window)].push_back(static_cast<int>(wParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

BOOL CALLBACK NoteMonitor(HMONITOR handle, HDC, LPRECT rect, LPARAM list) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoA(handle, &info);
    auto& monitors = *reinterpret_cast<std::vector<Rect>*>(list);
    const bool primary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    monitors.insert(primary ? monitors.begin() : monitors.end(), {rect->left, rect->top, rect->right, rect->bottom});
    return TRUE;
}

}  // namespace

std::vector<Rect> Monitors() {
    std::vector<Rect> monitors;
    EnumDisplayMonitors(nullptr, nullptr, NoteMonitor, reinterpret_cast<LPARAM>(&monitors));
    return monitors;
}

void SwapButtons(bool swapped) {
    SwapMouseButton(swapped);
}

WindowHandle AddOwn(const NewWindow& window) {
    const HWND made = MakeWindow(ToOrder(window));
    if (window.className != "Edit") SetWindowLongPtrA(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OwnProcedure));
    if (window.parent == 0 && window.visible) {
        Within(StagePatienceMs, [&] { return platform::ForegroundWindow() == FromHwnd(made); });
        // With the focus the display tells the state of its keys, a moment later, and that would undo a key that is
        // injected in between.
        Within(FocusSettlesMs, [] { return false; });
    }
    return FromHwnd(made);
}

void RemoveOwn(WindowHandle window) {
    DestroyWindow(ToHwnd(window));
}

std::vector<int> HotkeysAt(WindowHandle ownWindow) {
    return hotkeys[ownWindow];
}

void PostHotkeyTo(WindowHandle ownWindow, int id) {
    PostMessageA(ToHwnd(ownWindow), WM_HOTKEY, static_cast<WPARAM>(id), 0);
}

// From another thread, for what a thread sends to itself is a plain call.
void SendHotkeyTo(WindowHandle ownWindow, int id) {
    std::thread([=] { SendNotifyMessageA(ToHwnd(ownWindow), WM_HOTKEY, static_cast<WPARAM>(id), 0); }).detach();
}

bool Within(int ms, const std::function<bool()>& condition) {
    const std::int64_t end = platform::TickCount() + ms;
    for (;;) {
        platform::Pump();
        if (condition()) return true;
        if (platform::TickCount() >= end) return false;
        platform::Sleep(5);
    }
}

// Under Wine a program of the host can be started by its path; this one types through the X server. Wine gives no
// handle to wait for, so a shell leaves a file behind when it has ended.
constexpr const char* TypingProgram = "Z:\\usr\\bin\\xdotool";

bool HasUser() {
    return platform::StateOf(TypingProgram) == platform::FileState::Readable;
}

void UserTaps(int virtualKey) {
    static const std::map<int, std::string> names = {{VK_ESCAPE, "Escape"}, {VK_F9, "F9"}};
    const auto named = names.find(virtualKey);
    const std::string name =
        named != names.end() ? named->second : std::string(1, static_cast<char>(std::tolower(virtualKey)));
    std::ostringstream done;
    done << "/tmp/contract." << GetCurrentProcessId() << '.' << ++lastNumber;
    std::ostringstream commandLine;
    commandLine << "Z:\\bin\\sh -c \"xdotool key --delay 20 " << name << "; : > " << done.str() << '"';
    Start(commandLine.str());
    EXPECT_TRUE(Within(StagePatienceMs, [&] { return platform::RemoveFile("Z:" + done.str()); })) << "no key was typed";
}

void OthersTap(int virtualKey) {
    std::thread([virtualKey] { SendTap(virtualKey); }).detach();
}

namespace {

// The box of this process that is open now.
HWND OpenBox() {
    HWND box = nullptr;
    while ((box = FindWindowExA(nullptr, box, "#32770", nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(box, &process);
        if (process == GetCurrentProcessId() && IsWindowVisible(box)) return box;
    }
    return nullptr;
}

std::string TextOfWindow(HWND window) {
    char text[1100] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

// Run on a thread of its own, since a box keeps the one that opened it.
void CloseBox(bool yes, const std::atomic<bool>& over, std::string& seen) {
    HWND box = nullptr;
    while (!over && (box = OpenBox()) == nullptr) ::Sleep(5);
    if (box == nullptr) return;
    constexpr int textId = 0xFFFF;
    seen = TextOfWindow(box) + "|" + TextOfWindow(GetDlgItem(box, textId));
    const bool asks = GetDlgItem(box, IDYES) != nullptr;
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(asks ? (yes ? IDYES : IDNO) : IDOK), 0);
}

}  // namespace

std::string BoxDuring(const std::function<void()>& act, bool yes) {
    std::atomic<bool> over = false;
    std::string seen;
    std::thread user([&] { CloseBox(yes, over, seen); });
    act();
    over = true;
    user.join();
    return seen;
}

TestFolder::TestFolder() {
    char temporary[MAX_PATH] = "";
    GetTempPathA(sizeof temporary, temporary);
    path = temporary + ("contract " + std::to_string(GetCurrentProcessId())) + "." + std::to_string(++lastNumber);
    platform::MakeFolder(path);
}

TestFolder::~TestFolder() {
    for (const std::string& name : platform::FilesIn(path, "").value_or(std::vector<std::string>())) {
        platform::RemoveFile(*this / name);
    }
    RemoveDirectoryA(path.c_str());
}

struct HeldFile::Inside {
    Inside(const std::string& path, Readers readers)
        : handle(CreateFileA(path.c_str(), GENERIC_READ, readers == Readers::LetIn ? FILE_SHARE_READ : 0, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        EXPECT_NE(handle.Get(), INVALID_HANDLE_VALUE);
    }
    OwnedHandle handle;
};

HeldFile::HeldFile(const std::string& path, Readers readers) : inside(std::make_unique<Inside>(path, readers)) {}

HeldFile::~HeldFile() = default;

}  // namespace contract

int main(int argc, char** argv) {
    if (argc == 4 && std::string(argv[1]) == contract::PuppetSwitch) {
        return contract::RunPuppet(argv[2], static_cast<DWORD>(std::strtoul(argv[3], nullptr, 10)));
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
