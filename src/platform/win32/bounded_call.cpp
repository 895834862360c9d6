#include "win32/bounded_call.h"

#include <algorithm>
#include <atomic>
#include <memory>

#include "platform/clock.h"
#include "win32/message_loop.h"

namespace platform {
namespace {

constexpr int MostCallsUnderWay = 8;
// Ample for one call of the system; such threads come and go all the time.
constexpr SIZE_T StackBytes = SIZE_T{256} * 1024;

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

DWORD WINAPI Perform(void* parameter) noexcept {
    const std::unique_ptr<std::shared_ptr<Call>> call(static_cast<std::shared_ptr<Call>*>(parameter));
    (*call)->answer = (*call)->function();
    SetEvent((*call)->done.Get());
    --callsUnderWay;
    return 0;
}

bool StartThread(const std::shared_ptr<Call>& call) {
    if (++callsUnderWay <= MostCallsUnderWay) {
        auto parameter = std::make_unique<std::shared_ptr<Call>>(call);
        const OwnedHandle thread(
            CreateThread(nullptr, StackBytes, Perform, parameter.get(), STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr));
        if (thread.Get() != nullptr) {
            static_cast<void>(parameter.release());  // the thread's own now
            return true;
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
