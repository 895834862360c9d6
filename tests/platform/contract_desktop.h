// The stage for the contract: what a test needs round the platform operations, said once and built twice, in
// simulated_stage.cpp on the desktop in memory and in win32_stage.cpp on the real one, where another program is a
// second process and the user's hands are real input from outside.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/input.h"
#include "platform/types.h"
#include "platform/window_services.h"

namespace contract {

using platform::Point;
using platform::Rect;
using platform::WindowHandle;

// How long is waited for what always comes.
inline constexpr int PatienceMs = 10'000;

// A frameless window: its client area is the whole of it. A top-level window's rectangle is in screen pixels, a
// child's in the parent's. A visible top-level window comes to the front and to the foreground. Class "Edit" takes
// typed text.
struct NewWindow {
    std::string className = "Contract";
    std::string caption = "";
    Rect rect = {100, 100, 500, 400};
    WindowHandle parent = 0;
    WindowHandle owner = 0;
    std::int32_t controlId = 0;
    bool visible = true;
    bool enabled = true;
};

// Another program with one thread, which answers until it is told to hang. It ends with the object, its windows too.
class OtherProgram {
public:
    OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram();

    WindowHandle Add(const NewWindow& window);
    void Remove(WindowHandle window);
    void Rename(WindowHandle window, const std::string& caption);
    void Focus(WindowHandle window);  // also brings its top-level window to the foreground
    std::string TextOf(WindowHandle edit);
    int ClicksOn(WindowHandle window);  // left button presses that the window was given
    void Hang();                        // until the end
    void Nap(int ms);                   // what comes meanwhile is dealt with after it

private:
    struct Inside;
    std::unique_ptr<Inside> inside;
};

// A window of the program under test, and the messages 0x312 (a hotkey) that its procedure was given: their ids.
WindowHandle AddOwn(const NewWindow& window);
void RemoveOwn(WindowHandle window);
std::vector<int> HotkeysAt(WindowHandle ownWindow);

// Such a message, posted to our own queue, or sent by somebody else, who does not wait here for the answer.
void PostHotkeyTo(WindowHandle ownWindow, int id);
void SendHotkeyTo(WindowHandle ownWindow, int id);

// Pumps and lets time pass until `condition` holds; false when it does not within `ms`.
bool Within(int ms, const std::function<bool()>& condition);

// What a call takes, and the bound of those that are bounded, with room for a machine that is busy with other work.
inline constexpr int BoundMs = platform::BoundedMilliseconds + 500;

template <class Call>
std::int64_t TimeOf(const Call& call) {
    const std::int64_t start = platform::TickCount();
    call();
    return platform::TickCount() - start;
}

// The monitors of the desktop, the primary one first; the simulated one has three, with negative coordinates.
std::vector<Rect> Monitors();

// The buttons of the mouse for a left-handed user, until the end of the process.
void SwapButtons(bool swapped);

// A key for SendInput, which goes down unless `state` is another; and its tap, sent at once.
inline platform::InputRecord KeyRecord(int virtualKey, std::int32_t state = 0) {
    platform::InputRecord key;
    key.dwType() = platform::InputKeyboard;
    key.KeyCode() = platform::ScanCodeOf(virtualKey) * 65536 + virtualKey;
    key.KeyState() = state;
    return key;
}
inline void SendTap(int virtualKey, std::int32_t state = 0) {
    platform::SendInput(KeyRecord(virtualKey, state));
    platform::SendInput(KeyRecord(virtualKey, state | platform::KeyUp));
}

// The user's hands. Where nobody can act for the user (HasUser is false), tests of it are skipped.
bool HasUser();
void UserTaps(int virtualKey);

// A key that somebody else taps from now on, on a thread of their own: its hook calls come when this thread pumps.
void OthersTap(int virtualKey);

// Runs `act`, which opens one box, and closes that: Enter on the button that is meant. Returns "title|text".
std::string BoxDuring(const std::function<void()>& act, bool yes = true);

// An empty folder for the test, gone at the end; and another program that holds a file open for reading.
class TestFolder {
public:
    TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();
    std::string operator/(const std::string& name) const { return path + "\\" + name; }
    const std::string& Path() const { return path; }

private:
    std::string path;
};

enum class Readers { LetIn, KeptOut };

class HeldFile {
public:
    explicit HeldFile(const std::string& path, Readers readers = Readers::LetIn);
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile();

private:
    struct Inside;
    std::unique_ptr<Inside> inside;
};

// Where the desktops differ on purpose. A test asks here, and nowhere else, for what it must expect.
//
//                                   simulated             Windows               Wine
//   clockIsReal                     no: time stands       yes                   yes
//                                   still between calls
//   hooksTellAltDown: keys with     yes                   yes                   no
//   Alt carry the flag 32
//   placesMinimised: a window of    yes                   yes                   no: it is shown at the place, then
//   another process has a place                                                 minimised, and the place forgotten
//   for later while minimised
//   or maximised
//   knowsAllCodePages               no: its own alone     yes                   yes
//
// Under Wine also, and met by patience (Within) on all three: a window brought forward is raised a moment later, and
// an injected move of the mouse comes back from the display as further moves that are not injected.
struct Differences {
    bool clockIsReal;
    bool hooksTellAltDown;
    bool placesMinimised;
    bool knowsAllCodePages;
};
const Differences& Desktop();

}  // namespace contract
