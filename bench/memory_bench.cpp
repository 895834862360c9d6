// The memory of the program when it begins to record: tessarine.exe itself, on the real desktop. Counted is what
// Windows charges a process for: committed memory that is shared with no file, touched or not.
//
//     memory_bench path-of-tessarine.exe

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>

#include "bench/ratio.h"
#include "pages/record_page_ids.h"
#include "platform/clock.h"
#include "shell/startup.h"
#include "win32/handles.h"

namespace {

constexpr double LimitMegabytes = 8;
constexpr int PatienceMs = 60'000;
constexpr int SettlesMs = 2000;

// Ends the bench when it does not come.
HWND Await(const std::function<HWND()>& window) {
    const std::int64_t end = platform::TickCount() + PatienceMs;
    for (;;) {
        const HWND found = window();
        if (found != nullptr) return found;
        if (platform::TickCount() >= end) std::exit(2);
        platform::Sleep(50);
    }
}

HWND VisibleWindow(const char* className) {
    const HWND found = FindWindowA(className, nullptr);
    return found != nullptr && IsWindowVisible(found) ? found : nullptr;
}

BOOL CALLBACK IsRecordButton(HWND window, LPARAM result) {
    if (GetDlgCtrlID(window) != record_page_command3) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

HWND RecordButton(HWND main) {
    HWND button = nullptr;
    EnumChildWindows(main, IsRecordButton, reinterpret_cast<LPARAM>(&button));
    return button;
}

double PrivateMegabytes(HANDLE process) {
    std::uint64_t bytes = 0;
    const char* place = nullptr;
    MEMORY_BASIC_INFORMATION region{};
    while (VirtualQueryEx(process, place, &region, sizeof region) == sizeof region) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) bytes += region.RegionSize;
        place = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
    return static_cast<double>(bytes) / (1024 * 1024);
}

HANDLE Start(std::string path) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessA(nullptr, path.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
        std::exit(3);
    }
    CloseHandle(process.hThread);
    return process.hProcess;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) return 1;
    const platform::OwnedHandle process(Start(words[1]));
    const HWND form1 = Await([] { return VisibleWindow(MainWindowClass); });
    platform::Sleep(SettlesMs);
    std::printf("at rest: %.1f MB\n", PrivateMegabytes(process.Get()));
    PostMessageA(RecordButton(form1), BM_CLICK, 0, 0);
    Await([] { return VisibleWindow("TessarineRecording"); });
    platform::Sleep(SettlesMs);
    bench::Report("memory of a program that records, MB", PrivateMegabytes(process.Get()), LimitMegabytes);
    TerminateProcess(process.Get(), 0);
    return bench::ExitCode();
}
