// hh.exe, which every Windows has in its own folder. Its library (hhctrl.ocx) could show the pages from within this
// process: with a browser and a thread of its own in a program that idles in the tray, and ends at once when it ends.
#include "platform/help.h"

#include <array>
#include <string>

#include "win32/handles.h"

namespace platform {
namespace {

struct Viewer {
    HANDLE process = nullptr;  // kept open, so that its number is not given to another
    DWORD number = 0;
    std::string page;
    ULONGLONG startTick = 0;
};
Viewer viewer;

constexpr ULONGLONG KeyRepeatMs = 2000;  // a held key asks again and again, until the viewer has the keyboard

bool IsOpen() {
    return viewer.process != nullptr && WaitForSingleObject(viewer.process, 0) == WAIT_TIMEOUT;
}

BOOL CALLBACK AskToClose(HWND window, LPARAM) noexcept {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == viewer.number && IsWindowVisible(window)) PostMessageA(window, WM_CLOSE, 0, 0);
    return TRUE;
}

std::string WindowsFolder() {
    std::array<char, MAX_PATH> folder{};
    const UINT length = GetSystemWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
    return length < folder.size() ? std::string(folder.data(), length) : "";
}

// In the folder of Windows, so that it neither keeps another one from being removed nor loads anything from there.
bool Start(const std::string& page) {
    const std::string folder = WindowsFolder();
    const std::string path = folder + "\\hh.exe";
    std::string commandLine = "\"" + path + "\" \"" + page + "\"";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    if (!CreateProcessA(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start,
                        &made)) {
        return false;
    }
    CloseHandle(made.hThread);
    if (viewer.process != nullptr) CloseHandle(viewer.process);
    viewer = {made.hProcess, made.dwProcessId, page, GetTickCount64()};
    return true;
}

}  // namespace

bool ShowHelp(const std::string& path, const std::string& topic) {
    const std::string page = topic.empty() ? path : path + "::/" + topic;
    if (IsOpen() && viewer.page == page && GetTickCount64() - viewer.startTick < KeyRepeatMs) return true;
    if (IsOpen()) EnumWindows(AskToClose, 0);
    return Start(page);
}

}  // namespace platform
