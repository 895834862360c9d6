#include "platform/instances.h"

#include <functional>
#include <string>
#include <utility>

#include "win32/failure_guard.h"
#include "win32/handles.h"

namespace platform {
namespace {

// Owned by the thread until the process ends, so that the system gives the place on when that happens. "Local" keeps
// the sessions of several users on one machine apart. Null when another process has it.
HANDLE ClaimPlace(const std::string& name) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, ("Local\\" + name + " running").c_str());
    if (mutex == nullptr) return nullptr;  // the name is held with higher privilege, by another instance then
    const DWORD answer = WaitForSingleObject(mutex, 0);
    if (answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED) return mutex;
    CloseHandle(mutex);
    return nullptr;
}

// A process that ends in the middle answers as one that knows nothing of the message, and so does one that may not be
// spoken to.
bool Send(WindowHandle window, UINT message, LPARAM lParam) {
    SetLastError(ERROR_SUCCESS);
    if (SendMessageA(ToHwnd(window), message, 1, lParam) != 0) return true;
    return GetLastError() == ERROR_SUCCESS && IsWindow(ToHwnd(window));
}

struct Door {
    HWND window = nullptr;
    std::function<void(const SentMessage&)> take;
};
Door door;

// A name of the system's objects has no backslash and a limited length, so the command line's hash stands for it: at
// worst, two starts at one moment take one another's sign for their own.
std::string SignName(const std::string& commandLine) {
    return "Local\\TessarineBegun " + std::to_string(std::hash<std::string>{}(commandLine));
}

bool IsSent(UINT message) {
    return message == WM_COPYDATA || message > 0xFFFF;  // what no part of the system uses
}

SentMessage Unpacked(UINT message, LPARAM lParam) {
    if (message != WM_COPYDATA || lParam == 0) return {message};
    const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    return {message, data.dwData, data.cbData, data.lpData};
}

LRESULT CALLBACK DoorThunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (!IsSent(message)) return DefWindowProcA(window, message, wParam, lParam);
    GuardedCall([&] {
        const auto take = door.take;  // the door may be closed meanwhile
        if (take) take(Unpacked(message, lParam));
    });
    return TRUE;
}

void RegisterDoorClass() {
    WNDCLASSA description{};
    description.lpfnWndProc = DoorThunk;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = DoorClass;
    RegisterClassA(&description);
}

}  // namespace

bool AnotherInstanceRuns(const std::string& name) {
    static bool isFirst = false;
    if (!isFirst) isFirst = ClaimPlace(name) != nullptr;
    return !isFirst;
}

RunClaim::RunClaim() : mutex(ClaimPlace("TessarineJob")), granted(mutex != nullptr) {}

RunClaim::~RunClaim() {
    if (!granted) return;
    ReleaseMutex(mutex);
    CloseHandle(mutex);
}

// Not a message-only window: those are not found by FindWindow.
void OpenDoor(const std::string& name, std::function<void(const SentMessage&)> take) {
    RegisterDoorClass();
    door.take = std::move(take);
    door.window = CreateWindowExA(WS_EX_TOOLWINDOW, DoorClass, name.c_str(), WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                  GetModuleHandleA(nullptr), nullptr);
}

void CloseDoor() {
    if (door.window != nullptr) DestroyWindow(std::exchange(door.window, nullptr));
    door.take = nullptr;
}

bool SendCopyData(WindowHandle window, const std::string& bytes) {
    COPYDATASTRUCT data{};
    data.dwData = 3;
    data.cbData = static_cast<DWORD>(bytes.size());
    data.lpData = const_cast<char*>(bytes.data());  // the system only reads it
    return Send(window, WM_COPYDATA, reinterpret_cast<LPARAM>(&data));
}

bool SendPlainMessage(WindowHandle window, unsigned message) {
    return Send(window, message, 0);
}

BegunSign::BegunSign(const std::string& commandLine)
    : event(CreateEventA(nullptr, TRUE, FALSE, SignName(commandLine).c_str())) {}

BegunSign::~BegunSign() {
    if (event != nullptr) CloseHandle(event);
}

bool BegunSign::IsSet() const {
    return event != nullptr && WaitForSingleObject(event, 0) == WAIT_OBJECT_0;
}

void TellBegun(const std::string& commandLine) {
    const OwnedHandle event(OpenEventA(EVENT_MODIFY_STATE, FALSE, SignName(commandLine).c_str()));
    if (event.Get() != nullptr) SetEvent(event.Get());
}

void ReplyToSender() {
    if (InSendMessage()) ReplyMessage(TRUE);
}

void LetComeForward(WindowHandle window) {
    DWORD process = 0;
    if (GetWindowThreadProcessId(ToHwnd(window), &process) != 0) AllowSetForegroundWindow(process);
}

}  // namespace platform
