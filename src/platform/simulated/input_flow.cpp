// What every input does, wherever it comes from.
#include "simulated/input_flow.h"

#include <algorithm>
#include <cstdlib>

#include "platform/hooks.h"
#include "simulated/activation.h"
#include "simulated/agenda.h"
#include "simulated/key_layout.h"
#include "simulated/surroundings.h"
#include "simulated/window_tree.h"

namespace simulated {

namespace {

constexpr int Shift = 16;
constexpr int Control = 17;
constexpr int Alt = 18;
constexpr int LeftWindows = 91;
constexpr int RightWindows = 92;
constexpr int FunctionKey10 = 121;
constexpr char Backspace = 8;
constexpr char Enter = 13;
constexpr char FirstPrintable = 32;

constexpr std::int32_t Downs =
    platform::MouseLeftDown | platform::MouseRightDown | platform::MouseMiddleDown | platform::MouseXDown;

struct KeyCell {
    bool down = false;
    bool toggled = false;
    bool wentDown = false;
};

// The press that the next one may make a double click with.
struct Press {
    std::int32_t button = 0;  // the key behind it; 0 for none
    WindowHandle window = 0;
    Point position;
    std::int64_t time = 0;  // ms
};

struct FlowState {
    std::array<KeyCell, 256> keys{};
    Point cursor;
    bool altWasUsed = false;       // another key went down since ALT did
    WindowHandle leftPressed = 0;  // where the left button went down
    int doubleClickMs = 500;
    Size doubleClickSize = {4, 4};
    Press lastPress;
    platform::KeyboardHook keyboardHook = nullptr;
    platform::MouseHook mouseHook = nullptr;
    bool keyboardHookDropped = false;
    bool mouseHookDropped = false;
    bool refusesHooks = false;
    bool hidesInputFromHooks = false;
    std::int64_t lastInput = 0;  // ms
    bool keepsJournals = true;
    std::vector<InputEntry> injected;
    std::vector<InputEntry> byHand;
};

FlowState& State() {
    static FlowState state;
    return state;
}

bool IsKey(int virtualKey) {
    return virtualKey >= 0 && virtualKey < 256;
}

KeyCell& CellOf(int virtualKey) {
    return State().keys[static_cast<std::size_t>(virtualKey)];
}

bool IsAlt(int virtualKey) {
    return virtualKey == 164 || virtualKey == 165;
}

// --- Hooks ---

std::uint32_t FlagIf(bool condition, std::uint32_t flag) {
    return condition ? flag : 0;
}

// ALT makes a "system" message of every key, its own press included, and its own release when no other key came
// between; so does F10.
std::uint32_t KeyMessage(const KeyInput& input, bool altHeld) {
    const bool usedAlt = IsAlt(input.virtualKey) && input.up && State().altWasUsed;
    const bool system = input.virtualKey == FunctionKey10 || (altHeld && !usedAlt && !IsKeyDown(Control));
    return (system ? 0x104u : 0x100u) + FlagIf(input.up, 1);
}

void CallHook(const KeyInput& input) {
    const bool isAlt = IsAlt(input.virtualKey);
    const bool altHeld = IsKeyDown(Alt) || isAlt;
    platform::KeyboardHookRecord record;
    record.message = KeyMessage(input, altHeld);
    record.vkCode = static_cast<std::uint32_t>(input.virtualKey);
    record.scanCode = static_cast<std::uint32_t>(input.scanCode);
    record.flags = FlagIf(input.extended, 1) | FlagIf(input.injected, 16) |
                   FlagIf(altHeld && !(isAlt && input.up), 32) | FlagIf(input.up, 128);
    record.time = static_cast<std::uint32_t>(input.time);
    record.dwExtraInfo = static_cast<std::uint32_t>(input.extraInfo);
    CallHookProcedure([hook = State().keyboardHook, record] { hook(record); });
}

std::uint32_t MouseMessage(std::int32_t action) {
    switch (action) {
        case platform::MouseLeftDown:
            return 0x201;
        case platform::MouseLeftUp:
            return 0x202;
        case platform::MouseRightDown:
            return 0x204;
        case platform::MouseRightUp:
            return 0x205;
        case platform::MouseMiddleDown:
            return 0x207;
        case platform::MouseMiddleUp:
            return 0x208;
        case platform::MouseWheel:
            return 0x20A;
        case platform::MouseXDown:
            return 0x20B;
        case platform::MouseXUp:
            return 0x20C;
        default:
            return 0x200;
    }
}

void CallHook(const MouseInput& input) {
    platform::MouseHookRecord record;
    record.message = MouseMessage(input.action);
    record.pt = input.action == platform::MouseMove ? input.point : State().cursor;
    record.mouseData = static_cast<std::uint32_t>(input.data) << 16;
    record.flags = FlagIf(input.injected, 1);
    record.time = static_cast<std::uint32_t>(input.time);
    CallHookProcedure([hook = State().mouseHook, record] { hook(record); });
}

// --- Key states ---

void SetCell(int virtualKey, bool down) {
    KeyCell& cell = CellOf(virtualKey);
    if (down && !cell.down) cell.toggled = !cell.toggled;
    cell.down = down;
    cell.wentDown = cell.wentDown || down;
}

// Left and right modifiers count for the plain one, too.
void SetKey(int virtualKey, bool down) {
    SetCell(virtualKey, down);
    if (virtualKey < 160 || virtualKey > 165) return;
    const int left = virtualKey & ~1;
    const int plain = Shift + (left - 160) / 2;
    SetCell(plain, CellOf(left).down || CellOf(left + 1).down);
}

int HeldModifiers() {
    return (IsKeyDown(Alt) ? 1 : 0) | (IsKeyDown(Control) ? 2 : 0) | (IsKeyDown(Shift) ? 4 : 0) |
           (IsKeyDown(LeftWindows) || IsKeyDown(RightWindows) ? 8 : 0);
}

// --- Windows ---

void AppendTyped(WindowHandle window, char character) {
    Window* edit = Find(window);
    if (edit == nullptr) return;
    if (character == Backspace) {
        // A line break goes as one.
        const std::size_t length = edit->text.ends_with("\r\n") ? 2 : std::min<std::size_t>(edit->text.size(), 1);
        edit->text.resize(edit->text.size() - length);
    } else if (character == Enter) {
        edit->text += "\r\n";
    } else {
        edit->text += character;
    }
}

void TypeInto(const Window& edit, int virtualKey) {
    if (IsKeyDown(Control) || IsKeyDown(Alt)) return;
    const char character = TypedCharacter(virtualKey, IsKeyDown(Shift), IsToggled(platform::VirtualKeyCapital));
    const bool isText =
        character >= FirstPrintable || character == '\t' || character == Enter || character == Backspace;
    if (!isText) return;
    if (DeliversAtOnce(edit.spec.thread)) return AppendTyped(edit.handle, character);
    Deliver(edit.spec.thread, [window = edit.handle, character] { AppendTyped(window, character); });
}

// The window may be gone by the time its thread gets to it.
void React(const Window& window, const Action& action) {
    Deliver(window.spec.thread, [handle = window.handle, action] {
        if (Find(handle) != nullptr) action();
    });
}

void GiveKeyToWindow(int virtualKey) {
    const Window* target = Find(KeyTarget());
    if (target == nullptr || !target->spec.enabled) return;
    if (target->isEdit) TypeInto(*target, virtualKey);
    const Reactions* reactions = ReactionsOf(target->handle);
    if (reactions == nullptr) return;
    const auto reaction = reactions->onKey.find(virtualKey);
    if (reaction != reactions->onKey.end()) React(*target, reaction->second);
}

// A press brings the window to the foreground and gives it the focus, if it and its top-level window are enabled.
void PressOn(WindowHandle window) {
    if (window == RootHandle) return ActivateDesktop();
    const Window* top = TopLevelOf(window);
    if (top != nullptr && top->spec.enabled) GiveFocus(*Find(window));
}

void ReleaseOn(WindowHandle window) {
    const Window* target = Find(window);
    const Reactions* reactions = ReactionsOf(window);
    if (target == nullptr || reactions == nullptr || window != State().leftPressed) return;
    if (target->spec.enabled && reactions->onClick) React(*target, reactions->onClick);
}

Point NearestOn(const Rect& monitor, Point point) {
    return {std::clamp(point.x, monitor.left, monitor.right - 1), std::clamp(point.y, monitor.top, monitor.bottom - 1)};
}

std::int64_t SquaredDistance(Point one, Point other) {
    const std::int64_t x = std::int64_t{one.x} - other.x;
    const std::int64_t y = std::int64_t{one.y} - other.y;
    return x * x + y * y;
}

// The cursor never leaves the monitors.
Point OnScreen(Point point) {
    const std::vector<Rect>& monitors = Monitors();
    const auto distance = [point](const Rect& each) { return SquaredDistance(NearestOn(each, point), point); };
    return NearestOn(*std::ranges::min_element(monitors, {}, distance), point);
}

void PressButton(std::int32_t downFlag, std::int32_t data, bool down) {
    const WindowHandle window = HitTest(State().cursor);
    SetKey(KeyOfButton(downFlag, data), down);
    const bool left = downFlag == platform::MouseLeftDown;
    if (!down) {
        if (left) ReleaseOn(window);
        return;
    }
    if (left) State().leftPressed = window;
    PressOn(window);
}

void TakeEffect(const KeyInput& input) {
    SetKey(input.virtualKey, !input.up);
    if (!input.up) State().altWasUsed = !IsAlt(input.virtualKey);
    if (input.up || TakeHotkey(HeldModifiers(), input.virtualKey)) return;
    GiveKeyToWindow(input.virtualKey);
}

void TakeEffect(const MouseInput& input) {
    constexpr std::int32_t Ups = Downs << 1;  // every release flag follows its press flag
    if (input.action == platform::MouseMove) {
        State().cursor = OnScreen(input.point);
    } else if ((input.action & Downs) != 0) {
        PressButton(input.action, input.data, true);
    } else if ((input.action & Ups) != 0) {
        PressButton(input.action >> 1, input.data, false);
    }
}

bool IsSecond(const Press& press, const Press& first) {
    const Size size = State().doubleClickSize;
    return press.button == first.button && press.window == first.window &&
           press.time - first.time <= State().doubleClickMs &&
           2 * std::abs(press.position.x - first.position.x) <= size.width &&
           2 * std::abs(press.position.y - first.position.y) <= size.height;
}

// A press that completes a double click begins no other one.
bool CompletesDoubleClick(const Press& press) {
    const bool completes = IsSecond(press, State().lastPress);
    State().lastPress = completes ? Press() : press;
    return completes;
}

Point PositionAfter(const platform::InputRecord& record) {
    if (record.dwType() != platform::InputMouse || (record.dwFlags() & platform::MouseMove) == 0) return State().cursor;
    return OnScreen(ResolvedPoint(record));
}

}  // namespace

void Feed(const KeyInput& input) {
    if (HookWaitsFor(platform::InputKeyboard)) CallHook(input);
    TakeEffect(input);
}

void Feed(const MouseInput& input) {
    if (HookWaitsFor(platform::InputMouse)) CallHook(input);
    TakeEffect(input);
}

Point ResolvedPoint(const platform::InputRecord& record) {
    if ((record.dwFlags() & platform::MouseAbsolute) != 0) return {record.dx(), record.dy()};
    return {State().cursor.x + record.dx(), State().cursor.y + record.dy()};
}

void WriteDown(bool injected, std::int64_t time, const platform::InputRecord& record) {
    FlowState& state = State();
    if (!state.keepsJournals) return;
    const bool atCursor = record.dwType() == platform::InputMouse && (record.dwFlags() & platform::MouseWheel) == 0;
    const Point position = PositionAfter(record);
    const WindowHandle window = atCursor ? HitTest(position) : KeyTarget();
    const std::int32_t button = atCursor ? record.dwFlags() & Downs : 0;
    const bool doubleClick =
        button != 0 && CompletesDoubleClick({KeyOfButton(button, record.mouseData()), window, position, time});
    const Rect around = ScreenRectOf(window);
    const Point place = {position.x - around.left, position.y - around.top};
    (injected ? state.injected : state.byHand).push_back({time, window, record, position, place, doubleClick});
}

void NoteInput() {
    State().lastInput = NowMs();
}

bool HookWaitsFor(std::int32_t inputType) {
    const FlowState& state = State();
    if (state.hidesInputFromHooks) return false;
    return inputType == platform::InputMouse ? state.mouseHook != nullptr && !state.mouseHookDropped
                                             : state.keyboardHook != nullptr && !state.keyboardHookDropped;
}

int KeyOfButton(std::int32_t downFlag, std::int32_t data) {
    switch (downFlag) {
        case platform::MouseLeftDown:
            return 1;
        case platform::MouseRightDown:
            return 2;
        case platform::MouseMiddleDown:
            return 4;
        default:
            return data == 2 ? 6 : 5;
    }
}

bool IsKeyDown(int virtualKey) {
    return CellOf(virtualKey).down;
}

bool IsToggled(int virtualKey) {
    return CellOf(virtualKey).toggled;
}

void SetDoubleClick(int ms, Size size) {
    State().doubleClickMs = ms;
    State().doubleClickSize = size;
}

void PlaceCursor(Point point) {
    State().cursor = OnScreen(point);
}

void SetToggle(int virtualKey, bool on) {
    if (IsKey(virtualKey)) CellOf(virtualKey).toggled = on;
}

const std::vector<InputEntry>& Journal() {
    return State().injected;
}

const std::vector<InputEntry>& HandJournal() {
    return State().byHand;
}

void ClearJournals() {
    State().injected.clear();
    State().byHand.clear();
}

void KeepJournals(bool keep) {
    State().keepsJournals = keep;
}

void RefuseHooks(bool refuse) {
    State().refusesHooks = refuse;
}

void DropHooks() {
    State().keyboardHookDropped = State().keyboardHook != nullptr;
    State().mouseHookDropped = State().mouseHook != nullptr;
}

void HideInputFromHooks(bool hide) {
    State().hidesInputFromHooks = hide;
}

}  // namespace simulated

namespace platform {

using simulated::State;

std::int16_t AsyncKeyState(int virtualKey) {
    if (!simulated::IsKey(virtualKey)) return 0;
    simulated::KeyCell& cell = simulated::CellOf(virtualKey);
    const int result = (cell.down ? -0x8000 : 0) | (cell.wentDown ? 1 : 0);
    cell.wentDown = false;
    return static_cast<std::int16_t>(result);
}

// The system extends the down bit over the high byte and down to bit 7.
std::int16_t KeyState(int virtualKey) {
    if (!simulated::IsKey(virtualKey)) return 0;
    const simulated::KeyCell& cell = simulated::CellOf(virtualKey);
    return static_cast<std::int16_t>((cell.down ? -0x80 : 0) | (cell.toggled ? 1 : 0));
}

int DoubleClickTime() {
    return State().doubleClickMs;
}

Size DoubleClickSize() {
    return State().doubleClickSize;
}

std::int64_t LastInputTick() {
    return State().lastInput;
}

Point CursorPosition() {
    return State().cursor;
}

Size ScreenSize() {
    const Rect& primary = simulated::Monitors().front();
    return {primary.right, primary.bottom};
}

void PassKeyOn() {}  // nobody else has a hook on this desktop

bool InstallKeyboardHook(KeyboardHook procedure) {
    if (State().refusesHooks) return false;
    State().keyboardHook = procedure;
    State().keyboardHookDropped = false;
    return true;
}

bool InstallMouseHook(MouseHook procedure) {
    if (State().refusesHooks) return false;
    State().mouseHook = procedure;
    State().mouseHookDropped = false;
    return true;
}

void RemoveKeyboardHook() {
    State().keyboardHook = nullptr;
}

void RemoveMouseHook() {
    State().mouseHook = nullptr;
}

bool KeyboardHookInstalled() {
    return State().keyboardHook != nullptr;
}

bool MouseHookInstalled() {
    return State().mouseHook != nullptr;
}

KeyboardHook InstalledKeyboardHook() {
    return State().keyboardHook;
}

}  // namespace platform
