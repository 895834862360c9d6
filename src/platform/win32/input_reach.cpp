// Whether injected input arrives: integrity levels, and the desktop that has the user's input.
#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "platform/input.h"
#include "win32/handles.h"

namespace platform {
namespace {

// --- integrity levels ---

std::optional<DWORD> LevelOfToken(HANDLE token) {
    alignas(TOKEN_MANDATORY_LABEL) std::array<std::byte, sizeof(TOKEN_MANDATORY_LABEL) + SECURITY_MAX_SID_SIZE> bytes;
    DWORD size = 0;
    if (!GetTokenInformation(token, TokenIntegrityLevel, bytes.data(), bytes.size(), &size)) return {};
    const PSID level = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(bytes.data())->Label.Sid;
    return *GetSidSubAuthority(level, *GetSidSubAuthorityCount(level) - DWORD{1});
}

std::optional<DWORD> LevelOf(HANDLE process) {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &opened)) return {};
    const OwnedHandle token(opened);
    return LevelOfToken(token.Get());
}

DWORD OwnLevel() {
    static const DWORD level = LevelOf(GetCurrentProcess()).value_or(SECURITY_MANDATORY_MEDIUM_RID);
    return level;
}

// What keeps input from a window keeps messages from it, too, and of those it is told. Nobody knows this one. For
// processes that do not let themselves be asked: those of other users, and of the system.
bool RefusesOurMessages(HWND window) {
    static const UINT unknown = RegisterWindowMessageA("Tessarine asks whether it is let in");
    return !PostMessageA(window, unknown, 0, 0) && GetLastError() == ERROR_ACCESS_DENIED;
}

// The answers for the processes that were asked last. An open handle keeps the system from giving the number of a
// process that has ended to another one.
struct AskedProcess {
    DWORD id = 0;
    HANDLE handle = nullptr;
    bool takesInput = true;
};

struct AskedProcesses {
    std::array<AskedProcess, 16> list{};
    std::size_t next = 0;
} asked;

const AskedProcess* FindAsked(DWORD id) {
    for (const AskedProcess& process : asked.list) {
        if (process.id == id) return &process;
    }
    return nullptr;
}

void Keep(const AskedProcess& process) {
    AskedProcess& place = asked.list[asked.next];
    if (place.handle != nullptr) CloseHandle(place.handle);
    place = process;
    asked.next = (asked.next + 1) % asked.list.size();
}

bool AskProcess(DWORD id, HWND window) {
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (handle == nullptr) return !RefusesOurMessages(window);
    const std::optional<DWORD> level = LevelOf(handle);
    const bool takesInput = level ? *level <= OwnLevel() : !RefusesOurMessages(window);
    Keep({id, handle, takesInput});
    return takesInput;
}

// --- desktops ---

std::string NameOf(HDESK desktop) {
    char name[256] = "";
    GetUserObjectInformationA(desktop, UOI_NAME, name, sizeof name, nullptr);
    return name;
}

const std::string& OwnDesktop() {
    static const std::string name = NameOf(GetThreadDesktop(GetCurrentThreadId()));
    return name;
}

}  // namespace

bool TakesOurInput(WindowHandle window) {
    DWORD id = 0;
    if (GetWindowThreadProcessId(ToHwnd(window), &id) == 0 || id == GetCurrentProcessId()) return true;
    const AskedProcess* known = FindAsked(id);
    return known != nullptr ? known->takesInput : AskProcess(id, ToHwnd(window));
}

// The desktops of the system (locked, asking for consent) do not even let themselves be opened.
bool InputReachesDesktop() {
    const HDESK input = OpenInputDesktop(0, FALSE, DESKTOP_READOBJECTS);
    if (input == nullptr) return false;
    const bool own = NameOf(input) == OwnDesktop();
    CloseDesktop(input);
    return own;
}

}  // namespace platform
