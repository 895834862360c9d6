// The memory of the program in the notification area, and when it begins to record: tessarine.exe itself, on the real
// desktop. Counted is what it uses: private pages that hold something. The unused ends of stacks and, under Wine, of
// the tables of handles, which every process has there, are committed as well, but cost nothing. What a recording adds
// counts touched or not.
//
//     memory_bench path-of-tessarine.exe

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <vector>

#include "bench/ratio.h"
#include "bench/started_program.h"
#include "main/main_form_ids.h"
#include "pages/record_page_ids.h"
#include "platform/clock.h"
#include "shell/startup.h"
#include "win32/handles.h"

namespace {

constexpr double LimitMegabytes = 8;
constexpr double AddedLimitMegabytes = 4;
constexpr std::ptrdiff_t PageBytes = 4096;
constexpr int SettlesMs = 2000;

HWND MainWindow() {
    return bench::VisibleWindow(MainWindowClass);
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

Memory Told(const char* when, HANDLE process) {
    platform::Sleep(SettlesMs);
    const Memory memory = PrivateMemory(process);
    std::printf("%s: %.1f MB committed, %.1f MB in use\n", when, memory.committed, memory.used);
    return memory;
}

// Closed by the user, with its list of jobs filled: it goes on in the notification area.
void BenchTray(const char* path) {
    const platform::OwnedHandle process = bench::Start(path);
    PostMessageA(bench::Await(MainWindow), WM_CLOSE, 0, 0);
    bench::Report("memory of the program in the tray, MB", Told("in the tray", process.Get()).used, LimitMegabytes);
    bench::End(process);
}

void BenchRecording(const char* path) {
    const platform::OwnedHandle process = bench::Start(path);
    const HWND form1 = bench::Await(MainWindow);
    SendMessageA(GetDlgItem(form1, form1_tabs), TCM_SETCURFOCUS, 0, 0);  // a page is made when it is first seen
    const Memory atRest = Told("at rest", process.Get());
    PostMessageA(bench::Await([form1] { return RecordButton(form1); }), BM_CLICK, 0, 0);
    bench::Await([] { return bench::VisibleWindow("TessarineRecording"); });
    const Memory recording = Told("recording", process.Get());
    bench::Report("memory of a program that records, MB", recording.used, LimitMegabytes);
    bench::Report("what a recording adds, touched or not, MB", recording.committed - atRest.committed,
                  AddedLimitMegabytes);
    bench::End(process);
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) return 1;
    BenchTray(words[1]);
    BenchRecording(words[1]);
    return bench::ExitCode();
}
