#include "win32/guard.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <new>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "guard/guard_command.h"
#include "platform/guard.h"
#include "win32/handles.h"

namespace platform {
namespace {

struct Guard {
    HeldState ownMemory;
    HeldState* held = &ownMemory;
    HANDLE mapping = nullptr;                // for good: a second guard gets the same one
    std::atomic<HANDLE> process = nullptr;   // the guard that was started last
    std::atomic<bool> beingStarted = false;  // by a thread that works on it now
} guard;

bool ShareHeldState() {
    if (guard.mapping != nullptr) return true;
    const HANDLE mapping =
        CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(HeldState), nullptr);
    if (mapping == nullptr) return false;
    void* const memory = MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(HeldState));
    if (memory == nullptr) {
        CloseHandle(mapping);
        return false;
    }
    guard.mapping = mapping;
    guard.held = new (memory) HeldState;
    CopyHeldState(guard.ownMemory, *guard.held);
    return true;
}

// A copy of a handle that the guard inherits, with no more rights than it needs.
HANDLE ForTheGuard(HANDLE handle, DWORD rights) {
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), handle, GetCurrentProcess(), &copy, rights, TRUE, 0);
    return copy;
}

// A list with the handles that are inherited: those and no others, whatever else happens to be inheritable just now.
class InheritedHandles {
public:
    explicit InheritedHandles(std::array<HANDLE, 2>& handles) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory.resize(size);
        good = InitializeProcThreadAttributeList(List(), 1, 0, &size) != FALSE;
        filled = good && UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.data(),
                                                   sizeof handles, nullptr, nullptr) != FALSE;
    }
    InheritedHandles(const InheritedHandles&) = delete;
    InheritedHandles& operator=(const InheritedHandles&) = delete;
    ~InheritedHandles() {
        if (good) DeleteProcThreadAttributeList(List());
    }

    LPPROC_THREAD_ATTRIBUTE_LIST List() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory.data()); }
    bool Filled() const { return filled; }

private:
    std::vector<std::byte> memory;
    bool good = false;
    bool filled = false;
};

// In wide characters: the program may lie in a folder whose name has no form in the code page.
std::wstring OwnPath() {
    std::wstring path(32'768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring SystemFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
    return path;
}

std::wstring CommandLine(const std::wstring& path, const GuardCommand& command) {
    const std::string text = GuardCommandText(command);
    return L'"' + path + L"\" " + std::wstring(text.begin(), text.end());
}

std::uint64_t Number(HANDLE handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

// The guard's process, or null. In the system folder, so that it keeps nobody from removing the current one; without
// the pointer's sign that a program is starting.
HANDLE StartProcess(std::array<HANDLE, 2>& handles) {
    InheritedHandles inherited(handles);
    if (!inherited.Filled()) return nullptr;
    STARTUPINFOEXW start{};
    start.StartupInfo.cb = sizeof start;
    start.StartupInfo.dwFlags = STARTF_FORCEOFFFEEDBACK;
    start.lpAttributeList = inherited.List();
    const std::wstring path = OwnPath();
    std::wstring commandLine = CommandLine(path, {Number(handles[0]), Number(handles[1])});
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                        EXTENDED_STARTUPINFO_PRESENT | CREATE_NO_WINDOW, nullptr, SystemFolder().c_str(),
                        &start.StartupInfo, &process)) {
        return nullptr;
    }
    CloseHandle(process.hThread);
    return process.hProcess;
}

void StartOne() {
    const OwnedHandle program(ForTheGuard(GetCurrentProcess(), SYNCHRONIZE));
    const OwnedHandle memory(ForTheGuard(guard.mapping, FILE_MAP_READ | FILE_MAP_WRITE));
    std::array<HANDLE, 2> handles = {program.Get(), memory.Get()};
    if (handles[0] == nullptr || handles[1] == nullptr) return;
    const HANDLE before = guard.process.exchange(StartProcess(handles));
    if (before != nullptr) CloseHandle(before);
}

void StartInTheBackground() noexcept {
    try {
        StartOne();
    } catch (const std::bad_alloc&) {  // no guard, then
    }
    guard.beingStarted = false;
}

bool Lives(HANDLE process) {
    return process != nullptr && WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

}  // namespace

// A process takes tens of milliseconds to start, on a thread that nobody waits for.
void StartGuard() {
    if (guard.beingStarted || Lives(guard.process) || !ShareHeldState()) return;
    guard.beingStarted = true;
    try {
        std::thread(StartInTheBackground).detach();
    } catch (const std::system_error&) {  // no more threads to be had
        guard.beingStarted = false;
    }
}

HeldState& OwnHeldState() {
    return *guard.held;
}

unsigned long GuardProcessId() {
    if (guard.beingStarted) return 0;
    const HANDLE process = guard.process;
    return Lives(process) ? GetProcessId(process) : 0;
}

}  // namespace platform
