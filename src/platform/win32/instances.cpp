#include "platform/instances.h"

#include "win32/handles.h"

namespace platform {
namespace {

// Held until the process ends. "Local" keeps the sessions of several users on one machine apart.
bool ClaimPlace() {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, "Local\\Tessarine running");
    if (mutex == nullptr) return false;  // the name is held with higher privilege, by another instance then
    if (GetLastError() != ERROR_ALREADY_EXISTS) return true;
    CloseHandle(mutex);  // a second instance must not keep the name alive after the first
    return false;
}

}  // namespace

bool AnotherInstanceRuns() {
    static const bool first = ClaimPlace();
    return !first;
}

void SendCopyData(WindowHandle window, const std::string& bytes) {
    COPYDATASTRUCT data{};
    data.dwData = 3;
    data.cbData = static_cast<DWORD>(bytes.size());
    data.lpData = const_cast<char*>(bytes.data());  // the system only reads it
    SendMessageA(ToHwnd(window), WM_COPYDATA, 1, reinterpret_cast<LPARAM>(&data));
}

void SendPlainMessage(WindowHandle window, unsigned message) {
    SendMessageA(ToHwnd(window), message, 1, 0);
}

}  // namespace platform
