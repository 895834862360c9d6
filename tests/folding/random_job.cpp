#include "folding/random_job.h"

#include <functional>
#include <random>

#include "support/job_builder.h"

namespace {

class Gestures {
public:
    explicit Gestures(unsigned seed) : random(seed) {}

    Job Make(int count) {
        while (count-- > 0) Next();
        return job.Built();
    }

private:
    // Few values, so that places, keys and windows meet again.
    std::int32_t Below(std::int32_t limit) { return std::uniform_int_distribution<std::int32_t>(0, limit - 1)(random); }
    std::int32_t Place() { return Below(3); }
    int AnyKey() {
        static constexpr int keys[] = {'A', 'B', 13, 112, 160, 161, 162, 163, 164, 165, 16};
        return keys[Below(std::size(keys))];
    }
    const JobBuilder::Button& AnyButton() {
        static constexpr JobBuilder::Button buttons[] = {Left, Left, Right, Middle, XButton1, XButton2};
        return buttons[Below(std::size(buttons))];
    }
    JobBuilder& AnyKeyEvent(int vk) {
        switch (Below(6)) {
            case 0:
                return job.ExtendedKeyDown(vk);
            case 1:
                return job.ExtendedKeyUp(vk);
            case 2:
                return job.KeyUp(vk);
            default:
                return job.KeyDown(vk);
        }
    }
    void ChangeWindow() {
        static const JobBuilder::Level top{"Notepad", "Untitled"};
        switch (Below(4)) {
            case 0:
                job.InNoWindow();
                break;
            case 1:
                job.InWindow({"Edit", "", 15}, top);
                break;
            case 2:
                job.InWindow({"Edit", "", 15, {44, 0, 1, {}, {}, {Place(), 0, 9, 9}}}, top);
                break;
            default:
                job.InWindow({"Progman", "Program Manager"});
                break;
        }
    }
    void StoredRow() {
        static const char* const texts[] = {"", "abc", "{L_CTRL DOWN}", "{L_CTRL DOWN}a{l_ctrl up}", "a{b", "{ALT}"};
        job.TextRow(texts[Below(std::size(texts))]);
        for (int i = Below(3); i > 0; --i) job.Continuation();
    }

    void Next() {
        switch (Below(20)) {
            case 0:
            case 1:
                ChangeWindow();
                break;
            case 2:
            case 3:
            case 4:
                job.Move(Place(), Place());
                break;
            case 5:
            case 6:
                job.Click(AnyButton(), Place(), Place());
                break;
            case 7:
                job.Press(AnyButton(), Place(), Place());
                break;
            case 8:
                job.Release(AnyButton(), Place(), Place());
                break;
            case 9:
                job.DoubleClick(Place(), Place());
                break;
            case 10:
            case 11:
                job.Wheel(120 * (Below(2) * 2 - 1));
                break;
            case 12:
                job.Wheel(40);
                break;
            case 13:
                StoredRow();
                break;
            default:
                AnyKeyEvent(AnyKey());
                break;
        }
    }

    std::mt19937 random;
    JobBuilder job;
};

}  // namespace

Job RandomJob(unsigned seed, int gestures) {
    return Gestures(seed).Make(gestures);
}
