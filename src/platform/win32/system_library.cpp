#include "win32/system_library.h"

#include "win32/handles.h"

namespace platform {

void HardenProcess() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    // The countdown sleeps for longer than Windows has patience, which would put a dead picture in a window's place.
    DisableProcessWindowsGhosting();
    SetDllDirectoryA("");                         // the current folder, for code that asks in the old way
    constexpr int TimerExceptionSuppression = 7;  // UOI_TIMERPROC_EXCEPTION_SUPPRESSION
    BOOL suppress = FALSE;
    SetUserObjectInformationA(GetCurrentProcess(), TimerExceptionSuppression, &suppress, sizeof suppress);
}

AnyFunction FindSystemFunction(const char* library, const char* function) {
    const HMODULE module = LoadLibraryExA(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module == nullptr) return nullptr;
    return reinterpret_cast<AnyFunction>(GetProcAddress(module, function));
}

}  // namespace platform
