// The memory of the program when it begins to record: tessarine.exe itself, on the real desktop. Counted is what it
// uses: private pages that hold something. The unused ends of stacks and, under Wine, of the tables of handles, which
// every process has there, are committed as well, but cost nothing. What a recording adds counts touched or not.
//
//     memory_bench path-of-tessarine.exe

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "pages/record_page_ids.h"
#include "platform/clock.h"
#include "shell/startup.h"
#include "win32/handles.h"

namespace {

constexpr double LimitMegabytes = 8;
constexpr double AddedLimitMegabytes = 4;
constexpr std::ptrdiff_t PageBytes = 4096;
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

struct Memory {
    double committed = 0;  // MB
    double used = 0;
};

// Of the pages of a region.
std::size_t BytesInUse(HANDLE process, const MEMORY_BASIC_INFORMATION& region) {
    std::vector<char> bytes(region.RegionSize);
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, region.BaseAddress, bytes.data(), bytes.size(), &read)) return region.RegionSize;
    std::size_t used = 0;
    for (auto page = bytes.begin(); page != bytes.end(); page += PageBytes) {
        if (std::any_of(page, page + PageBytes, [](char byte) { return byte != 0; })) used += PageBytes;
    }
    return used;
}

Memory PrivateMemory(HANDLE process) {
    constexpr double megabyte = 1024 * 1024;
    Memory memory;
    const char* place = nullptr;
    MEMORY_BASIC_INFORMATION region{};
    while (VirtualQueryEx(process, place, &region, sizeof region) == sizeof region) {
        if (region.State == MEM_COMMIT && region.Type == MEM_PRIVATE) {
            memory.committed += static_cast<double>(region.RegionSize) / megabyte;
            memory.used += static_cast<double>(BytesInUse(process, region)) / megabyte;
        }
        place = static_cast<const char*>(region.BaseAddress) + region.RegionSize;
    }
    return memory;
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
    const Memory atRest = PrivateMemory(process.Get());
    std::printf("at rest: %.1f MB committed, %.1f MB in use\n", atRest.committed, atRest.used);
    PostMessageA(RecordButton(form1), BM_CLICK, 0, 0);
    Await([] { return VisibleWindow("TessarineRecording"); });
    platform::Sleep(SettlesMs);
    const Memory recording = PrivateMemory(process.Get());
    bench::Report("memory of a program that records, MB", recording.used, LimitMegabytes);
    bench::Report("what a recording adds, touched or not, MB", recording.committed - atRest.committed,
                  AddedLimitMegabytes);
    TerminateProcess(process.Get(), 0);
    return bench::ExitCode();
}
