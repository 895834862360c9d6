#include "findings/good_job.h"

#include "support/job_builder.h"

namespace {

struct Window {
    JobBuilder::Level leaf;
    JobBuilder::Level top;
};

JobBuilder::Level Top(const char* className, const char* caption, platform::Rect place, std::uint32_t show = 1) {
    return {className, caption, 0, {44, 0, show, {-1, -1}, {-1, -1}, place}};
}

const Window windows[] = {
    {{"Edit", "", 15, {44, 0, 1, {}, {}, {0, 0, 500, 400}}},
     Top("Notepad", "Untitled - Notepad", {100, 100, 600, 500})},
    {{"Button", "OK", 1, {44, 0, 1, {}, {}, {10, 350, 110, 390}}}, Top("#32770", "Save As", {300, 200, 700, 600})},
    {{"Canvas", "", 7, {44, 0, 1, {}, {}, {0, 60, 550, 620}}}, Top("Painter", "", {-1200, 80, -650, 700})},
    {{"View", "", 2, {44, 0, 1, {}, {}, {0, 0, 1280, 984}}}, Top("Browser", "Search", {50, 50, 300, 300}, 3)},
};

class Gestures {
public:
    explicit Gestures(unsigned seed) : random(seed) {}

    Job Make() {
        for (int i = 8 + Below(random, 25); i > 0; --i) Next();
        EnterWindow();
        job.Click(Right, X(), Y()).Type("e").Click(Left, X(), Y());
        job.Header().Version = 300;
        return job.Built();
    }

private:
    void EnterWindow() {
        window = &windows[Below(random, std::size(windows))];
        job.InWindow(window->leaf, window->top);
    }
    std::int32_t X() { return window->top.Placement.rcNormalPosition.left + 10 + Below(random, 200); }
    std::int32_t Y() { return window->top.Placement.rcNormalPosition.top + 10 + Below(random, 200); }

    void Next() {
        EnterWindow();
        job.Wait(Below(random, 3) * 400);
        switch (Below(random, 8)) {
            case 0:
                job.Type("abcx");
                return;
            case 1:
                job.KeyDown(160).Type("hi").KeyUp(160).Key(13);
                return;
            case 2:
                job.TextRow("dear {L_SHIFT DOWN}r{L_SHIFT UP}eader{ENTER}{WHEEL DOWN}").Continuation().Continuation();
                return;
            case 3:
                job.Press(Left, X(), Y()).Move(X(), -3).Move(X(), Y()).Release(Left, X(), Y());
                return;
            case 4:
                job.Wheel(120).Wheel(120).Wheel(40);
                return;
            case 5:
                job.Move(X(), Y()).Move(9999, -9999).DoubleClick(X(), Y());
                return;
            case 6:
                job.KeyDown('A').KeyDown('B').KeyUp('A').KeyUp('B').Click(Middle, X(), Y());
                return;
            default:
                job.Click(Below(random, 2) == 0 ? Left : XButton1, X(), Y());
        }
    }

    Random random;
    JobBuilder job;
    const Window* window = nullptr;
};

}  // namespace

Job GoodJob(unsigned seed) {
    return Gestures(seed).Make();
}
