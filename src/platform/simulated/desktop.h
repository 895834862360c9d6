// The desktop of the tests: a small Windows in memory behind the operations of platform/*.h. This header is what a
// test says to it, told as a story: windows appear and change, the user's hands press and move, boxes are answered.
//
// Time moves only in platform::Sleep, platform::SleepUntil, RunFor, RunUntil and an open box. There are two kinds of
// happenings:
//   - Other programs and the user's hands act when the clock passes their moment, inside a Sleep too: Meanwhile...,
//     AppearsAfter, UserHolds. Handlers of windows of other threads run with them.
//   - The program's own are run by platform::Pump alone, inside it, nested pumps included: At, After, Every, timers,
//     hook procedures of the user's input, hotkeys, handlers of windows of OwnThread. A pump inside a hook call runs of
//     them only what the system sends: further hook procedures, the tray, SendToProgram.
// A failure that leaves one of the program's own is shown in a box, as the real desktop does. A box inside a hook call
// ends the test.
//
// All times are in ms, moments on the scale of platform::TickCount, which starts at 0. Everything is module-level
// state; each test runs in a process of its own. Calls for a window that is gone are ignored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/sound.h"
#include "platform/types.h"

namespace simulated {

using Action = std::function<void()>;
using platform::Point;
using platform::Rect;
using platform::Size;
using platform::WindowHandle;

// --- Time ---

// The wall clock. It goes on from here as the clock moves. At first 2004-06-15 10:00:00, a Tuesday.
void SetLocalTime(const platform::LocalTime& time);

// The program's message loop: pumps, and moves the clock from one happening to the next until `ms` have passed.
void RunFor(std::int64_t ms);

// The same until `done` holds, which is asked every millisecond; false when it does not within `limitMs`.
bool RunUntil(const std::function<bool()>& done, std::int64_t limitMs = 60'000);

using HappeningId = std::uint64_t;

// Run by the pump, once due. A late pump gets one call of an Every, not several.
HappeningId At(std::int64_t moment, Action action);
HappeningId After(std::int64_t ms, Action action);
void RefuseTimers(bool refuse = true);  // platform::StartTimer then gives 0
HappeningId Every(std::int64_t ms, Action action);

// Run when the clock passes their moment. They must not sleep.
HappeningId MeanwhileAt(std::int64_t moment, Action action);
HappeningId MeanwhileAfter(std::int64_t ms, Action action);

// --- Windows ---

inline constexpr std::uint32_t OwnThread = 1;    // the program's user-interface thread
inline constexpr std::uint32_t OtherThread = 2;  // of a window that names no thread

// Windows behave as those of Windows do, with these simplifications: a window takes the focus when it is clicked,
// whatever its class; a window that becomes active gives the focus to the window in it that had it last; a background
// thread has no focus; a message box does not disable its owner. FindTopWindow compares class and caption without
// regard to letter case, as FindWindowA does, and finds hidden windows too.

// What a window is at first. A top-level window's rectangle is in screen pixels, a child's in the parent's client
// pixels. A child that names no thread has its parent's, an owned window its owner's. A visible top-level window
// takes the foreground as it appears unless `active` is false. A window of class "Edit" collects typed text.
// A new top-level window stands in front of the others, a new child behind its siblings, as Windows puts them.
struct WindowSpec {
    std::string className = "Window";
    std::string caption = "";
    Rect rect = {100, 100, 500, 400};
    std::uint32_t thread = 0;
    WindowHandle parent = 0;
    WindowHandle owner = 0;
    std::int32_t controlId = 0;
    bool visible = true;
    bool enabled = true;
    bool topmost = false;
    bool active = true;
    bool captionBeyondCodePage = false;  // `caption` is what the code page makes of it; FindTopWindow does not find it
    Point clientOrigin = {0, 0};         // how far frame and caption reach into the window
};

WindowHandle AddWindow(const WindowSpec& spec);

// The handle is known at once; the window exists when the time has passed. A parent or owner that is gone by then
// takes it along.
WindowHandle AppearsAfter(std::int64_t ms, const WindowSpec& spec);

void Destroy(WindowHandle window);  // with its children and the windows that it owns
void SetCaption(WindowHandle window, const std::string& caption);
void MoveWindow(WindowHandle window, Point upperLeft);
void Resize(WindowHandle window, Size size);
void Minimise(WindowHandle window);  // the next window takes the foreground
void Maximise(WindowHandle window);
void Restore(WindowHandle window);
void SetVisible(WindowHandle window, bool visible);
void SetEnabled(WindowHandle window, bool enabled);
void Raise(WindowHandle window);          // to the front; foreground and focus stay
void Activate(WindowHandle window);       // to the front and to the foreground
void SetFocus(WindowHandle window);       // activates its top-level window and gives it the focus
void LeaveNoForeground();                 // as between two programs
WindowHandle Cover(WindowHandle window);  // another program's window, exactly over it and not active
void SetText(WindowHandle window, const std::string& text);
std::string TextOf(WindowHandle window);  // what was typed into an Edit; ENTER is "\r\n"
Rect ScreenRectOf(WindowHandle window);   // as it stands now; minimised far off the screen
Point CentreOf(WindowHandle window);
WindowHandle FocusedWindow();         // of the foreground thread
bool IsVisible(WindowHandle window);  // itself and all its parents

// A thread that hangs: calls that need one of its windows take HungMilliseconds and fail; what came for it, input
// and placements, is dealt with when it goes on.
inline constexpr std::int64_t HungMilliseconds = 200;
void SetHung(WindowHandle window, bool hung = true);

// Its program has a higher integrity level: what is injected for it is lost, in silence.
void KeepInputFrom(WindowHandle window, bool keep = true);

void RefuseForeground(WindowHandle window, bool refuse = true);
void RefusePlacement(WindowHandle window, bool refuse = true);

// What a window does when it is clicked (left button down and up on it), when a key goes down in it. Handlers of
// OwnThread run in the pump, all others at once. A second handler replaces the first. A window that has yet to appear
// can be told, too.
void OnClick(WindowHandle window, Action action);
void OnKey(WindowHandle window, int virtualKey, Action action);

// The window procedure, for hotkeys (0x312), the tray (512) and what other processes send (0x4A with its bytes).
struct Message {
    unsigned message = 0;
    std::intptr_t wParam = 0;
    std::intptr_t lParam = 0;
    std::string bytes = "";  // of WM_COPYDATA
};
void OnMessage(WindowHandle window, std::function<void(const Message&)> procedure);
void PostTo(WindowHandle window, const Message& message);  // runs its procedure by the rule above

// As another program sends it to a window of OwnThread: the next pump lets it in, inside a hook call too.
void SendToProgram(WindowHandle window, const Message& message);

// --- Screen, keyboard and mouse ---

void SetScreenSize(Size size);                        // one monitor; 1280 x 1024 at first
void SetMonitors(const std::vector<Rect>& monitors);  // the primary one first, with its corner at the origin
void SetDoubleClick(int ms, Size size);               // 500 ms, 4 x 4 at first
void PlaceCursor(Point point);                        // by nobody: no hook, no journal
void SetToggle(int virtualKey, bool on);              // Caps, Num and Scroll Lock; all off at first
bool InputBlocked();                                  // by platform::BlockInput

// Whether platform::SendInput works; refused, it returns 0.
enum class Injection { Works, Refused };
void SetInjection(Injection fate);

// The user's input goes to another desktop, as while the workstation is locked: what is injected is lost, in silence.
void LockDesktop(bool locked = true);

// One input as it arrived.
struct InputEntry {
    std::int64_t time = 0;    // ms, when it was made
    WindowHandle window = 0;  // mouse: under the cursor; keys and wheel: with the focus, else in the foreground
    platform::InputRecord record;
    Point position;            // of the cursor, after it
    Point place;               // the same within the window
    bool doubleClick = false;  // of a press: the system makes a double click of it and the press before it
};
const std::vector<InputEntry>& Journal();      // injected
const std::vector<InputEntry>& HandJournal();  // by the user's hands, in the form in which it would be injected
void ClearJournals();
void KeepJournals(bool keep);  // on at first; off for benchmarks

// The user's hands, now (within Meanwhile... at any other time). While a hook is installed, what they do waits for
// the pump: there the hook is called first, as for the system a window gets nothing before the hooks have returned.
// Blocked input is lost.
enum class Button { Left, Right, Middle, X1, X2 };
void UserPressesKey(int virtualKey);
void UserReleasesKey(int virtualKey);
void UserTaps(int virtualKey);
void UserTypes(const std::string& text);  // with SHIFT where the US layout wants it; '\n' is ENTER
void UserMovesTo(Point point);
void UserPresses(Button button = Button::Left);
void UserReleases(Button button = Button::Left);
void UserClicks(Point point, Button button = Button::Left);
void UserTurnsWheel(int delta);  // 120 is one notch away from the user

// From one moment to another, without auto-repeat.
void UserHolds(int virtualKey, std::int64_t from, std::int64_t to);
void UserHoldsEscapeFrom(std::int64_t from, std::int64_t to);

void RefuseHooks(bool refuse = true);
void DropHooks();                           // the system takes them away without a word
void HideInputFromHooks(bool hide = true);  // as on a locked screen, or for a window of higher privilege

// --- Boxes ---

// How a box is answered. It is open for `afterMs`, pumping; `whileOpen` runs as soon as it is open.
struct BoxAnswer {
    bool yes = true;
    std::int64_t afterMs = 0;
    Action whileOpen = {};
    bool cancel = false;  // Esc, where a question has a Cancel; with `yes` off
};
void AnswerNextBox(const BoxAnswer& answer);  // of either kind; several answers queue up

// Boxes in the order in which they opened. One without a scripted answer closes at once; a question gets No.
struct ShownBox {
    std::string text;
    std::string title;
    platform::BoxIcon icon = platform::BoxIcon::None;
    bool question = false;
    bool yes = false;  // the answer to a question
    bool cancel = false;
    std::int64_t time = 0;
};
const std::vector<ShownBox>& ShownBoxes();

// --- The rest of the system ---

// The registry. Writing and deleting can be refused.
void RefuseRegistry(bool refuse = true);

// The tray.
struct TrayIcon {
    bool present = false;
    WindowHandle window = 0;
    std::string tip;
    std::vector<std::string> balloons;  // "title: text"
};
const TrayIcon& Tray();
void UserOnTray(unsigned mouseMessage);  // WM_MOUSEMOVE 0x200, WM_LBUTTONUP 0x202, ...

// Hotkeys. Modifiers: 1 Alt, 2 Ctrl, 4 Shift.
bool HotkeyRegistered(int modifiers, int virtualKey);  // by the program

// The processor's load in percent, as the next readings find it; 0 at first. No value: the system does not tell.
void SetProcessorLoad(std::optional<int> percent);

// Sounds: those that the program has, and the places of those that it has started.
const std::vector<platform::Sound>& Sounds();
const std::vector<std::size_t>& StartedSounds();

// Programs that were started.
struct StartedProgram {
    std::string commandLine;
    int windowStyle = 0;
    std::int64_t time = 0;
};
const std::vector<StartedProgram>& StartedPrograms();
void RefuseStarts(bool refuse = true);  // of the viewer of the help, too
void OnStart(std::function<void(const StartedProgram&)> action);

// A start whose command line contains `part` shows a window after a while.
void ProgramShows(const std::string& part, std::int64_t afterMs, const WindowSpec& window);

// Pages of the help that were shown: "path|topic".
const std::vector<std::string>& ShownHelp();

// The network. The connection is there at first; an address at which nobody was put answers nothing. A page comes after
// `afterMs`, or not at all when that is longer than it is waited for.
void Disconnect(bool disconnect = true);
void PutPage(const std::string& address, const std::string& text, std::int64_t afterMs = 0);
const std::vector<std::string>& FetchedAddresses();

// How often the program has asked for a guard.
int GuardStarts();

// Processes by their numbers.
inline constexpr std::uint32_t OwnProcessNumber = 1234;
void LetProcessRun(std::uint32_t process);

// Instances.
void LetAnotherInstanceRun(const std::string& name, bool runs = true);
void LetAnotherProgramPlay(bool plays = true);  // a job
int RepliesToSenders();                         // early ones
bool MayComeForward(WindowHandle window);       // its process was granted the foreground
struct SentMessage {
    WindowHandle window = 0;
    Message message;
};
const std::vector<SentMessage>& SentMessages();

// Folders and the folder browser, which is cancelled when it has no answer.
void SetExecutableFolder(const std::string& path);
void SetDesktopDirectory(const std::string& path);
void SetCommandLine(const std::string& text);
void AnswerNextFolder(const std::optional<std::string>& path);

// The question for a file to save: what the user types (nothing: Cancel), and the paths that were offered.
void AnswerNextFileToSave(const std::string& path);
const std::vector<std::string>& OfferedFiles();
const std::vector<std::pair<std::string, std::string>>& BrowsedFolders();  // prompt and start

}  // namespace simulated
