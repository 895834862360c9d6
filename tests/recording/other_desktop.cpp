#include "other_desktop.h"

#include <random>
#include <string>
#include <vector>

#include "random_user.h"
#include "simulated/desktop.h"

namespace {

using platform::Point;
using platform::Rect;
using platform::WindowHandle;

constexpr int ChangesDuringTheRun = 6;
constexpr int RunMs = 20'000;

class Change {
public:
    explicit Change(std::uint32_t seed) : random(seed * 2654435761U + 17) {}

    void Build();
    void Once();
    void Thieve();

private:
    int Upto(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
    bool Sometimes(int in) { return Upto(in - 1) == 0; }
    int Late() { return Sometimes(6) ? 1 + Upto(12'000) : 0; }
    WindowHandle SomeProgram();
    Rect SomePlace(int width, int height);
    void Twin(const Openings& openings);
    void Alike();

    std::mt19937 random;
};

WindowHandle Change::SomeProgram() {
    const std::vector<WindowHandle> programs = ProgramsOnDesktop();
    if (programs.empty()) return 0;
    return programs[static_cast<std::size_t>(Upto(static_cast<int>(programs.size()) - 1))];
}

Rect Change::SomePlace(int width, int height) {
    const int left = Upto(1270 - width);
    const int top = Upto(1010 - height);
    return {left, top, left + width, top + height};
}

void Change::Build() {
    const Openings openings = {.editor = Late(), .painter = Late(), .calculator = Late()};
    BuildDesktop(openings);
    for (int i = Upto(4); i > 0; --i) Once();
    if (Sometimes(3)) Twin(openings);
    if (Sometimes(3)) Alike();
}

void Change::Once() {
    const WindowHandle window = SomeProgram();
    switch (Upto(6)) {
        case 0:
        case 1:
            return simulated::MoveWindow(window, {Upto(700), Upto(600)});
        case 2:
            return simulated::Resize(window, {200 + Upto(500), 150 + Upto(400)});
        case 3:
            return simulated::Minimise(window);
        case 4:
            return simulated::Maximise(window);
        case 5:
            simulated::Cover(window);
            return;
        default:
            return Sometimes(2) ? simulated::Raise(window) : simulated::Activate(window);
    }
}

// Not while the recorded one is still to open: a single window of that name, in whatever place, is it.
void Change::Twin(const Openings& openings) {
    const std::pair<const char*, int> programs[] = {
        {"editor", openings.editor}, {"painter", openings.painter}, {"calculator", openings.calculator}};
    const auto& [name, opensAfter] = programs[Upto(2)];
    if (opensAfter == 0) AddTwin(name, SomePlace(500, 400));
}

void Change::Alike() {
    const char* captions[] = {"b.txt - Editor", "A.TXT - Editor", "a.txt - Editor *", "Editor"};
    simulated::AddWindow(
        {.className = "Editor", .caption = captions[Upto(3)], .rect = SomePlace(300, 300), .active = Sometimes(2)});
}

void Change::Thieve() {
    const WindowHandle thief =
        simulated::AddWindow({.className = "Thief", .caption = "Update", .rect = SomePlace(300, 120)});
    simulated::MeanwhileAfter(100 + Upto(3000), [thief] { simulated::Destroy(thief); });
}

}  // namespace

void BuildOtherDesktop(std::uint32_t seed) {
    static Change change(seed);
    change.Build();
    std::mt19937 moments(seed);
    for (int i = static_cast<int>(moments() % (ChangesDuringTheRun + 1)); i > 0; --i) {
        const auto moment = static_cast<std::int64_t>(moments() % RunMs);
        const bool thief = moments() % 2 == 0;
        simulated::MeanwhileAfter(moment, [thief] { thief ? change.Thieve() : change.Once(); });
    }
}
