// Telling a second start of the program from the first, and talking to the first. Sending blocks until the receiver
// has dealt with the message: for as long as a job runs, if that is what it does with it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/types.h"

namespace platform {

// True while another process of this user runs the program of this name. The first call that finds none claims the
// place for this process, until it ends; one that ended without a word has left it.
bool AnotherInstanceRuns(const std::string& name);

// The right to play a job on this desktop, which one program at a time has: the main program or a made one. A program
// that ended without a word has given it back.
class RunClaim {
public:
    RunClaim();
    RunClaim(const RunClaim&) = delete;
    RunClaim& operator=(const RunClaim&) = delete;
    ~RunClaim();  // NOLINT(performance-trivially-destructible): so it is on the simulated desktop alone

    bool Granted() const { return granted; }

private:
    [[maybe_unused]] void* mutex = nullptr;  // a handle of Windows; the simulated desktop has none
    bool granted = false;
};

// What a second start sends. `lpData` is another program's, and `cbData` what it says of it; valid during the call.
struct SentMessage {
    unsigned message = 0;  // WM_COPYDATA, or one of ShowYourselfMessage's kind
    std::uintptr_t dwData = 0;
    std::uint32_t cbData = 0;
    const void* lpData = nullptr;
};

// A hidden window of this class, with `name` for its caption: it takes what second starts send until the main window
// can, also while a box is open. `take` is called from whatever pumps.
inline constexpr const char* DoorClass = "TessarineDoor";
void OpenDoor(const std::string& name, std::function<void(const SentMessage&)> take);
void CloseDoor();

// WM_COPYDATA with dwData 3, wParam 1 (`bytes` is the whole payload), and SendMessageA with wParam 1. False when the
// window's process did not deal with it: it has ended meanwhile, or does not take messages of a program of less
// privilege.
bool SendCopyData(WindowHandle window, const std::string& bytes);
bool SendPlainMessage(WindowHandle window, unsigned message);

// A named event: the first instance has begun what a second start of this process's kind sent to it. Should it end in
// the middle, the second knows that it must not be begun again. Lives with the second start's wait.
class BegunSign {
public:
    explicit BegunSign(const std::string& commandLine);
    BegunSign(const BegunSign&) = delete;
    BegunSign& operator=(const BegunSign&) = delete;
    ~BegunSign();

    bool IsSet() const;

private:
    [[maybe_unused]] void* event;  // a handle of Windows; the simulated desktop has none
};

// Sets the sign of those that wait for this command line, if any does.
void TellBegun(const std::string& commandLine);

// ReplyMessage: whoever waits for the message that is being dealt with now goes on, as if that were done. For a process
// that ends because of it. Nothing happens outside of such a message.
void ReplyToSender();

// AllowSetForegroundWindow: the window's process may come to the foreground, which only the one that has it, or that
// the user has just started, can grant.
void LetComeForward(WindowHandle window);

}  // namespace platform
