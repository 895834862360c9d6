#include "win32/bounded_call.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <system_error>
#include <thread>

#include "platform/clock.h"
#include "win32/message_loop.h"

namespace platform {
namespace {

constexpr int MostCallsUnderWay = 8;
std::atomic<int> callsUnderWay = 0;

// Owned by the caller and the thread together: whoever is last frees it.
struct Call {
    std::function<bool()> function;
    OwnedHandle done{CreateEventA(nullptr, TRUE, FALSE, nullptr)};
    std::atomic<bool> answer = false;
};

DWORD MillisecondsLeft(std::int64_t deadline) {
    return static_cast<DWORD>(std::max<std::int64_t>(0, deadline - Microseconds()) / 1000);
}

void Perform(const std::shared_ptr<Call>& call) {
    call->answer = call->function();
    SetEvent(call->done.Get());
    --callsUnderWay;
}

bool StartThread(const std::shared_ptr<Call>& call) {
    if (++callsUnderWay <= MostCallsUnderWay) {
        try {
            std::thread(Perform, call).detach();
            return true;
        } catch (const std::system_error&) {  // no more threads to be had
        }
    }
    --callsUnderWay;
    return false;
}

bool WaitServing(HANDLE done, std::int64_t deadline) {
    for (;;) {
        const DWORD woken =
            MsgWaitForMultipleObjectsEx(1, &done, MillisecondsLeft(deadline), QS_SENDMESSAGE, MWMO_INPUTAVAILABLE);
        if (woken == WAIT_OBJECT_0) return true;
        if (woken != WAIT_OBJECT_0 + 1 || Microseconds() >= deadline) return false;
        TakeInSentMessages();
    }
}

}  // namespace

bool Answers(HWND window, std::int64_t deadline) {
    DWORD_PTR result = 0;
    if (SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, MillisecondsLeft(deadline), &result)) return true;
    // Windows of higher privilege refuse even this message. Whether they hang cannot be known; the call decides.
    return GetLastError() == ERROR_ACCESS_DENIED;
}

BoundedAnswer CallUntil(std::int64_t deadline, std::function<bool()> function) {
    const auto call = std::make_shared<Call>();
    call->function = std::move(function);
    if (call->done.Get() == nullptr || !StartThread(call)) return BoundedAnswer::Late;
    if (!WaitServing(call->done.Get(), deadline)) return BoundedAnswer::Late;
    return call->answer ? BoundedAnswer::Yes : BoundedAnswer::No;
}

}  // namespace platform
