#include "random_user.h"

#include <map>

#include "identity/window_identity.h"
#include "support/story.h"

namespace {

using platform::Point;
using platform::Rect;
using platform::WindowHandle;
using simulated::WindowSpec;

constexpr int ScrollLockKey = 145;
constexpr int CapsLock = 20;
constexpr std::int64_t NoDoubleClickMs = 600;

struct Desktop {
    std::map<WindowHandle, std::string> names;  // of all desktops
    std::vector<WindowHandle> tops;             // of the present one
    std::vector<WindowHandle> fields;
    WindowHandle editor = 0;
    WindowHandle find = 0;
    WindowHandle tools = 0;
    int findsToCome = 0;
    std::string prefix;  // of the names of the windows that are being built
    int generation = 0;  // counts the calls of BuildDesktop
};
Desktop desktop;

WindowHandle Named(const std::string& name, WindowHandle window) {
    desktop.names[window] = desktop.prefix + name;
    return window;
}

WindowHandle Top(const std::string& name, const WindowSpec& spec) {
    const WindowHandle window = Named(name, simulated::AddWindow(spec));
    desktop.tops.push_back(window);
    return window;
}

WindowHandle Child(const std::string& name, const std::string& className, WindowHandle parent, Rect rect,
                   std::int32_t controlId) {
    return Named(name, simulated::AddWindow({.className = className,
                                             .caption = className == "Button" ? name : "",
                                             .rect = rect,
                                             .parent = parent,
                                             .controlId = controlId}));
}

WindowHandle Field(const std::string& name, WindowHandle parent, Rect rect, std::int32_t controlId) {
    const WindowHandle field = Child(name, "Edit", parent, rect, controlId);
    if (desktop.prefix.empty()) desktop.fields.push_back(field);
    return field;
}

void CloseFind() {
    simulated::Destroy(desktop.find);
    desktop.find = 0;
}

void ShowFind() {
    if (platform::WindowExists(desktop.find)) return;
    desktop.find =
        Top("find", {.className = "#32770", .caption = "Find", .rect = {350, 250, 650, 450}, .owner = desktop.editor});
    const WindowHandle field = Field("find.text", desktop.find, {20, 20, 280, 60}, 2);
    simulated::OnClick(Child("find.close", "Button", desktop.find, {20, 100, 120, 140}, 3), CloseFind);
    simulated::OnKey(field, 27, CloseFind);
    simulated::SetFocus(field);
}

void ShowFindLater() {
    ++desktop.findsToCome;
    simulated::MeanwhileAfter(300, [] {
        --desktop.findsToCome;
        ShowFind();
    });
}

void ToggleTools() {
    if (platform::WindowExists(desktop.tools)) return simulated::Destroy(desktop.tools);
    desktop.tools = Top(
        "tools",
        {.className = "Tools", .caption = "Tools", .rect = {1000, 600, 1190, 690}, .topmost = true, .active = false});
}

void BuildEditor(Rect rect = {100, 100, 600, 500}) {
    const WindowHandle editor = Top("editor", {.className = "Editor", .caption = "a.txt - Editor", .rect = rect});
    const WindowHandle text = Field("editor.text", editor, {0, 0, 500, 340}, 15);
    const WindowHandle find = Child("editor.find", "Button", editor, {10, 350, 110, 390}, 1);
    const WindowHandle later = Child("editor.later", "Button", editor, {130, 350, 230, 390}, 2);
    if (!desktop.prefix.empty()) return;
    desktop.editor = editor;
    simulated::OnClick(find, ShowFind);
    simulated::OnClick(later, ShowFindLater);
    simulated::OnKey(text, 114, ShowFind);  // F3
}

void BuildPainter(Rect rect = {650, 80, 1200, 700}) {
    const WindowHandle painter = Top("painter", {.className = "Painter", .rect = rect});
    const WindowHandle canvas = Child("painter.canvas", "Canvas", painter, {0, 60, 550, 620}, 7);
    const WindowHandle tools = Child("painter.tools", "Button", painter, {10, 10, 110, 50}, 8);
    if (!desktop.prefix.empty()) return;
    simulated::OnClick(tools, ToggleTools);
    simulated::OnKey(canvas, 116, ToggleTools);  // F5
}

// Two rows of keys that look alike but for their ids and places.
void BuildCalculator(Rect rect = {200, 550, 640, 950}) {
    const WindowHandle calculator =
        Top("calculator", {.className = "Calculator", .caption = "Calculator", .rect = rect});
    for (int i = 0; i < 6; ++i) {
        const std::int32_t left = 20 + i % 3 * 130;
        const std::int32_t top = 40 + i / 3 * 130;
        Child("calculator." + std::to_string(i), "Key", calculator, {left, top, left + 110, top + 110}, 100 + i / 2);
    }
}

// The hooks see an input before its window does, and each is through before the next is made, as with the real system.
void Press(simulated::Button button) {
    simulated::UserPresses(button);
    platform::Pump();
}

void Release(simulated::Button button) {
    simulated::UserReleases(button);
    platform::Pump();
}

void KeyDown(int virtualKey) {
    simulated::UserPressesKey(virtualKey);
    platform::Pump();
}

void KeyUp(int virtualKey) {
    simulated::UserReleasesKey(virtualKey);
    platform::Pump();
}

void Tap(int virtualKey) {
    KeyDown(virtualKey);
    KeyUp(virtualKey);
}

void MoveTo(Point point) {
    simulated::UserMovesTo(point);
    platform::Pump();
}

// The user of one seed.
class User {
public:
    explicit User(std::uint32_t seed) : random(seed) {}

    UserSession Play();

private:
    int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
    bool Sometimes(int in) { return Upto(in - 1) == 0; }
    void Wait(int most) { simulated::RunFor(1 + Upto(most)); }
    Point SomePlace();
    simulated::Button SomeButton();

    void AwaitFind();
    void Act();
    void Move(Point to);
    void Click();
    void DoubleClick();
    void Drag();
    void Wheel();
    void Type();
    void Hold();
    void Chord();
    void ScrollLock();

    std::mt19937 random;
    Point cursor;
    UserSession session;
};

// Well inside a window that is there just now; a pixel of jitter never leaves it.
Point User::SomePlace() {
    std::vector<WindowHandle> places;
    for (const auto& [window, name] : desktop.names) {
        if (platform::WindowExists(window)) places.push_back(window);
    }
    const Rect place =
        simulated::ScreenRectOf(places[static_cast<std::size_t>(Upto(static_cast<int>(places.size()) - 1))]);
    return {place.left + 4 + Upto(place.right - place.left - 9), place.top + 4 + Upto(place.bottom - place.top - 9)};
}

simulated::Button User::SomeButton() {
    constexpr simulated::Button Buttons[] = {
        simulated::Button::Left,   simulated::Button::Left, simulated::Button::Left, simulated::Button::Right,
        simulated::Button::Middle, simulated::Button::X1,   simulated::Button::X2};
    return Buttons[Upto(6)];
}

void User::Move(Point to) {
    const int steps = 1 + Upto(4);
    for (int i = 1; i <= steps; ++i) {
        MoveTo({cursor.x + (to.x - cursor.x) * i / steps, cursor.y + (to.y - cursor.y) * i / steps});
        Wait(8);
    }
    cursor = to;
}

void User::Click() {
    simulated::RunFor(NoDoubleClickMs);
    const simulated::Button button = SomeButton();
    Press(button);
    Wait(120);
    Release(button);
}

void User::DoubleClick() {
    simulated::RunFor(NoDoubleClickMs);
    const std::size_t begin = simulated::HandJournal().size();
    Press(simulated::Button::Left);
    Wait(60);
    Release(simulated::Button::Left);
    Wait(60);
    // Over the edge between two windows the halves would be meant for different ones, and a double click of a job goes
    // to the window of its first half.
    const Point beside = {cursor.x + 1, cursor.y};
    if (Sometimes(2) && platform::WindowAt(beside) == platform::WindowAt(cursor)) MoveTo(beside);
    Press(simulated::Button::Left);
    Wait(60);
    Release(simulated::Button::Left);
    platform::Pump();
    session.doubleClicks.push_back({begin, simulated::HandJournal().size()});
    cursor = platform::CursorPosition();
    if (!Sometimes(3)) return;
    Press(simulated::Button::Left);  // a third click is one of its own
    Wait(60);
    Release(simulated::Button::Left);
}

void User::Drag() {
    simulated::RunFor(NoDoubleClickMs);
    const simulated::Button button = Sometimes(4) ? simulated::Button::Right : simulated::Button::Left;
    Press(button);
    Wait(50);
    Move(SomePlace());
    Release(button);
}

void User::Wheel() {
    for (int i = Upto(3); i >= 0; --i) {
        simulated::UserTurnsWheel(Sometimes(2) ? 120 : -120);
        Wait(40);
    }
}

void User::Type() {
    constexpr int Shift = 160;
    constexpr int Keys[] = {'A', 'B', 'C', 'X', '1', '2', 186, 188, 190, 191, 192, 13, 32, 32};
    for (int i = Upto(7); i >= 0; --i) {
        const int key = Keys[Upto(13)];
        const bool shifted = Sometimes(4);
        if (shifted) KeyDown(Shift);
        Tap(key);
        if (shifted) KeyUp(Shift);
        Wait(90);
    }
}

// Auto-repeat.
void User::Hold() {
    constexpr int Keys[] = {'A', 'Z', 32, 8, 37, 39, 40, 46, 160, 161, 162};
    const int key = Keys[Upto(10)];
    for (int i = Upto(12); i >= 0; --i) {
        KeyDown(key);
        simulated::RunFor(33);
    }
    KeyUp(key);
}

void User::Chord() {
    constexpr int Modifiers[] = {160, 161, 162, 163, 164, 91};
    constexpr int Keys[] = {'C', 'V', 9, 13, 27, 36, 35, 112, 114, 116, CapsLock};
    const int modifier = Modifiers[Upto(5)];
    const bool modified = Sometimes(2);
    if (modified) KeyDown(modifier);
    Wait(30);
    Tap(Keys[Upto(10)]);
    Wait(30);
    if (modified) KeyUp(modifier);
}

// As the last act: a click without a place is bound to change what follows.
void User::ScrollLock() {
    const std::size_t begin = simulated::HandJournal().size();
    for (int i = Upto(3); i >= 0; --i) KeyDown(ScrollLockKey);
    KeyUp(ScrollLockKey);
    platform::Pump();
    session.scrollLocks.push_back({begin, simulated::HandJournal().size()});
}

void User::Act() {
    if (Sometimes(2)) Move(SomePlace());
    switch (Upto(9)) {
        case 0:
        case 1:
        case 2:
            return Click();
        case 3:
            return DoubleClick();
        case 4:
            return Drag();
        case 5:
            return Wheel();
        case 6:
        case 7:
            return Type();
        case 8:
            return Hold();
        default:
            return Chord();
    }
}

// What goes on before a window that was asked for has come is a race, which no job can replay. Nor does one wait for
// the window of an extended key, so that the first key in it is a plain one.
void User::AwaitFind() {
    if (desktop.findsToCome == 0) return;
    simulated::RunUntil([] { return desktop.findsToCome == 0; });
    Tap('F');
}

UserSession User::Play() {
    cursor = platform::CursorPosition();
    simulated::RunFor(100);
    for (int i = 5 + Upto(20); i > 0; --i) {
        Act();
        Wait(Sometimes(5) ? 1500 : 150);
        AwaitFind();
    }
    if (Sometimes(10)) ScrollLock();
    simulated::RunFor(1000);
    return session;
}

}  // namespace

// A program that is still to open when its desktop is taken away stays away.
void Open(int afterMs, void (*build)()) {
    if (afterMs == 0) return build();
    simulated::MeanwhileAfter(afterMs, [build, generation = desktop.generation] {
        if (desktop.generation == generation) build();
    });
}

void BuildDesktop(const Openings& openings) {
    ++desktop.generation;
    for (const WindowHandle top : desktop.tops) simulated::Destroy(top);
    simulated::Destroy(ownWindows.main);
    desktop.tops.clear();
    desktop.fields.clear();
    desktop.find = desktop.tools = 0;
    Top("desktop", {.className = "Progman", .caption = "Program Manager", .rect = {0, 0, 1280, 1024}});
    ownWindows.main = simulated::AddWindow({.className = "Form1",
                                            .caption = "Tessarine",
                                            .rect = {700, 300, 1100, 600},
                                            .thread = simulated::OwnThread,
                                            .visible = false});
    Open(openings.editor, [] { BuildEditor(); });
    Open(openings.painter, [] { BuildPainter(); });
    Open(openings.calculator, [] { BuildCalculator(); });
    if (!desktop.fields.empty()) simulated::SetFocus(desktop.fields.front());
    simulated::PlaceCursor({640, 512});
    simulated::SetToggle(CapsLock, false);
}

void AddTwin(const std::string& name, Rect rect) {
    desktop.prefix = "twin.";
    if (name == "editor") BuildEditor(rect);
    if (name == "painter") BuildPainter(rect);
    if (name == "calculator") BuildCalculator(rect);
    desktop.prefix.clear();
}

std::vector<WindowHandle> ProgramsOnDesktop() {
    std::vector<WindowHandle> programs;
    for (const WindowHandle top : desktop.tops) {
        if (platform::WindowExists(top) && NameOf(top) != "desktop") programs.push_back(top);
    }
    return programs;
}

std::string NameOf(WindowHandle window) {
    const auto found = desktop.names.find(window);
    return found == desktop.names.end() ? "(" + platform::ClassOf(window) + ")" : found->second;
}

std::vector<std::pair<std::string, std::string>> TextsOnDesktop() {
    std::vector<std::pair<std::string, std::string>> texts;
    for (const WindowHandle field : desktop.fields) {
        if (platform::WindowExists(field)) texts.emplace_back(NameOf(field), simulated::TextOf(field));
    }
    return texts;
}

UserSession PlayUser(std::uint32_t seed) {
    return User(seed).Play();
}
