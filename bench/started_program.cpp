#include "bench/started_program.h"

#include <cstdint>
#include <cstdlib>

#include "bench/patience.h"
#include "platform/clock.h"

platform::OwnedHandle bench::Start(std::string commandLine) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process)) {
        std::exit(3);
    }
    CloseHandle(process.hThread);
    return platform::OwnedHandle(process.hProcess);
}

void bench::End(const platform::OwnedHandle& process) {
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), PatienceMs);
}

HWND bench::Await(const std::function<HWND()>& window, int pauseMs) {
    const std::int64_t end = platform::TickCount() + PatienceMs;
    for (;;) {
        const HWND found = window();
        if (found != nullptr) return found;
        if (platform::TickCount() >= end) std::exit(2);
        platform::Sleep(pauseMs);
    }
}

HWND bench::VisibleWindow(const char* className) {
    const HWND found = FindWindowA(className, nullptr);
    return found != nullptr && IsWindowVisible(found) ? found : nullptr;
}
