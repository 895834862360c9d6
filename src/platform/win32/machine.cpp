#include "platform/machine.h"

#include <algorithm>

#include "win32/handles.h"
#include "win32/system_library.h"

namespace platform {
namespace {

constexpr int EffectiveDpi = 0;  // MDT_EFFECTIVE_DPI

using GetDpiForMonitorFunction = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);

int DpiOf(HMONITOR monitor) {
    static const auto getDpi = SystemFunction<GetDpiForMonitorFunction>("shcore.dll", "GetDpiForMonitor");
    UINT x = USER_DEFAULT_SCREEN_DPI;
    UINT y = USER_DEFAULT_SCREEN_DPI;
    if (getDpi != nullptr) getDpi(monitor, EffectiveDpi, &x, &y);
    return static_cast<int>(x);
}

BOOL CALLBACK AddMonitor(HMONITOR monitor, HDC, LPRECT, LPARAM list) noexcept {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (GetMonitorInfoA(monitor, &info) == 0) return TRUE;
    const RECT& place = info.rcMonitor;
    reinterpret_cast<std::vector<Monitor>*>(list)->push_back({{place.left, place.top, place.right, place.bottom},
                                                              DpiOf(monitor),
                                                              (info.dwFlags & MONITORINFOF_PRIMARY) != 0});
    return TRUE;
}

}  // namespace

std::vector<Monitor> Monitors() {
    std::vector<Monitor> monitors;
    EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors));
    std::stable_partition(monitors.begin(), monitors.end(), [](const Monitor& each) { return each.primary; });
    return monitors;
}

std::string KeyboardLayoutName() {
    char name[KL_NAMELENGTH] = {};
    return GetKeyboardLayoutNameA(name) != 0 ? name : "";
}

// GetVersionEx tells what the manifest asks for, and not what is there.
std::string SystemVersion() {
    using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
    static const auto getVersion = SystemFunction<RtlGetVersionFunction>("ntdll.dll", "RtlGetVersion");
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (getVersion == nullptr || getVersion(&version) != 0) return "Windows";
    return "Windows " + std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) + "." +
           std::to_string(version.dwBuildNumber);
}

}  // namespace platform
