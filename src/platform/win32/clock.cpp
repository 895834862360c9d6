#include "platform/clock.h"

#include <algorithm>

#include "win32/handles.h"
#include "win32/system_library.h"

namespace platform {
namespace {

// No timer of Windows wakes a thread more exactly than this; the rest of a sleep is spent spinning.
constexpr std::int64_t SpinMicroseconds = 1500;

std::int64_t CounterFrequency() {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);  // cannot fail since Windows XP
    return frequency.QuadPart;
}

// Without it a sleep is rounded up to the system's tick of 15.6 ms. For the rest of the process.
bool RaiseTimerResolution() {
    const auto begin = SystemFunction<UINT(WINAPI*)(UINT)>("winmm.dll", "timeBeginPeriod");
    return begin != nullptr && begin(1) == 0;
}

void CoarseSleep(std::int64_t microseconds) {
    static const bool raised = RaiseTimerResolution();
    // Where the tick stays coarse, a sleep that could overshoot is not begun.
    const std::int64_t step = raised ? 1000 : 16000;
    if (microseconds > step) ::Sleep(static_cast<DWORD>((microseconds - step) / 1000));
}

// A timer that is exact on its own, also for a hidden program, which Windows 11 denies a raised resolution. Windows
// has it since version 10 (1803); empty before.
HANDLE HighResolutionTimer() {
    constexpr DWORD highResolution = 2;  // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
    // Never closed: with mingw-w64 a destructor of thread-local data runs after its memory is gone. One for each thread
    // that sleeps, and those are few.
    thread_local const HANDLE timer = CreateWaitableTimerExW(nullptr, nullptr, highResolution, TIMER_ALL_ACCESS);
    return timer;
}

// Returns early or late by up to a timer's error.
void SleepAbout(std::int64_t microseconds) {
    LARGE_INTEGER due;
    due.QuadPart = -microseconds * 10;  // relative, in 100 ns
    const HANDLE timer = HighResolutionTimer();
    if (timer != nullptr && SetWaitableTimer(timer, &due, 0, nullptr, nullptr, FALSE)) {
        WaitForSingleObject(timer, INFINITE);
    } else {
        CoarseSleep(microseconds);
    }
}

}  // namespace

std::int64_t Microseconds() {
    static const std::int64_t frequency = CounterFrequency();
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    // Whole seconds apart, so that the product does not overflow after ten days of uptime.
    return counter.QuadPart / frequency * 1'000'000 + counter.QuadPart % frequency * 1'000'000 / frequency;
}

std::int64_t TickCount() {
    return Microseconds() / 1000;
}

void Sleep(std::int64_t milliseconds) {
    if (milliseconds <= 0) {
        ::Sleep(0);
        return;
    }
    SleepUntil(Microseconds() + milliseconds * 1000);
}

void SleepUntil(std::int64_t moment) {
    for (std::int64_t left = moment - Microseconds(); left > 0; left = moment - Microseconds()) {
        if (left > SpinMicroseconds) {
            SleepAbout(left - SpinMicroseconds);
        } else {
            YieldProcessor();
        }
    }
}

LocalTime LocalNow() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

std::string ShortDateText() {
    char text[100] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, sizeof text);
    return text;
}

}  // namespace platform
