// Measures a piece of the program against a plain yardstick (a bare read of the same bytes, say) and holds the ratio
// to a limit, which means the same on every machine. Prints lines like
//
//     read job / plain read                      1.42  (at most 2.0)  ok
//
// A bench's main returns ExitCode().
#pragma once

#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

struct Verdict {
    bool good = true;
};
inline Verdict verdict;

inline int ExitCode() {
    return verdict.good ? 0 : 1;
}

inline void Report(const std::string& title, double figure, double limit) {
    const bool ok = figure <= limit;
    verdict.good = verdict.good && ok;
    std::printf("%-44s %6.2f  (at most %g)  %s\n", title.c_str(), figure, limit, ok ? "ok" : "TOO MUCH");
    std::fflush(stdout);
}

inline double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// What this thread had of the processor meanwhile: what other programs take from the machine is no cost of the work.
// For work that waits for nothing. Windows tells it in steps of 16 ms, so the benches of the real desktop use Seconds.
inline double ProcessorSeconds(const std::function<void()>& work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    };
    const double start = now();
    work();
    return now() - start;
}

using Stopwatch = double (*)(const std::function<void()>& work);

inline double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// Runs both in turn, `rounds` times after one warm-up of each, so that a busy spell of the machine strikes both, and
// reports the ratio of the medians. Returns it.
inline double ReportRatio(const std::string& title, const std::function<void()>& work,
                          const std::function<void()>& yardstick, double limit, int rounds = 15,
                          Stopwatch stopwatch = ProcessorSeconds) {
    std::vector<double> workTimes;
    std::vector<double> yardstickTimes;
    for (int round = 0; round <= rounds; ++round) {
        const double yardstickTime = stopwatch(yardstick);
        const double workTime = stopwatch(work);
        if (round == 0) continue;
        workTimes.push_back(workTime);
        yardstickTimes.push_back(yardstickTime);
    }
    const double ratio = Median(workTimes) / Median(yardstickTimes);
    Report(title, ratio, limit);
    return ratio;
}

}  // namespace bench
