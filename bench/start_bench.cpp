// How soon the main window stands and answers, against a program that only shows the same dialogs. The program makes a
// page when it is first seen; how it compares with the dialogs that it does make is told, too.
//
//     start_bench path-of-tessarine.exe path-of-dialog_templates.exe

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "bench/ratio.h"
#include "bench/started_program.h"
#include "platform/clock.h"
#include "shell/startup.h"

namespace {

constexpr int Rounds = 11;
constexpr UINT AnswerMs = 20'000;

HWND MainWindowThatAnswers() {
    const HWND window = bench::VisibleWindow(MainWindowClass);
    DWORD_PTR answer = 0;
    const bool answers =
        window != nullptr && SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, AnswerMs, &answer) != 0;
    return answers ? window : nullptr;
}

double SecondsToStart(const std::string& path) {
    const std::int64_t began = platform::Microseconds();
    const platform::OwnedHandle process = bench::Start(path);
    bench::Await(MainWindowThatAnswers, 1);
    const std::int64_t ended = platform::Microseconds();
    bench::End(process);
    return static_cast<double>(ended - began) / 1e6;
}

}  // namespace

int main(int count, char** words) {
    if (count != 3) return 1;
    std::vector<double> ours;
    std::vector<double> bare;
    std::vector<double> barePage;
    for (int round = 0; round <= Rounds; ++round) {
        const double bareStart = SecondsToStart(words[2]);
        const double pageStart = SecondsToStart(std::string(words[2]) + " page");
        const double ourStart = SecondsToStart(words[1]);
        if (round == 0) continue;
        bare.push_back(bareStart);
        barePage.push_back(pageStart);
        ours.push_back(ourStart);
    }
    std::printf("starts: %.0f ms, of the same dialogs alone %.0f ms, of the page in front alone %.0f ms\n",
                bench::Median(ours) * 1000, bench::Median(bare) * 1000, bench::Median(barePage) * 1000);
    bench::Report("start with 100 jobs / of the same dialogs alone", bench::Median(ours) / bench::Median(bare), 1.5);
    return bench::ExitCode();
}
