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
        using Event = JobBuilder& (JobBuilder::*)(int);
        static constexpr Event events[] = {&JobBuilder::ExtendedKeyDown, &JobBuilder::ExtendedKeyUp,
                                           &JobBuilder::KeyUp,           &JobBuilder::KeyDown,
                                           &JobBuilder::KeyDown,         &JobBuilder::KeyDown};
        return (job.*events[Below(std::size(events))])(vk);
    }
    void ChangeWindow() {
        static const JobBuilder::Level top{"Notepad", "Untitled"};
        const std::vector<JobBuilder::Level> paths[] = {{},
                                                        {{"Edit", "", 15}, top},
                                                        {{"Edit", "", 15, {44, 0, 1, {}, {}, {Place(), 0, 9, 9}}}, top},
                                                        {{"Progman", "Program Manager"}}};
        const auto& path = paths[Below(std::size(paths))];
        path.empty() ? job.InNoWindow() : job.InWindowPath(path);
    }
    void StoredRow() {
        static const char* const texts[] = {"", "abc", "{L_CTRL DOWN}", "{L_CTRL DOWN}a{l_ctrl up}", "a{b", "{ALT}"};
        job.TextRow(texts[Below(std::size(texts))]);
        for (int i = Below(3); i > 0; --i) job.Continuation();
    }

    void Next() {
        const std::pair<int, std::function<void()>> gestures[] = {
            // of twenty
            {2, [this] { ChangeWindow(); }},
            {3, [this] { job.Move(Place(), Place()); }},
            {2, [this] { job.Click(AnyButton(), Place(), Place()); }},
            {1, [this] { job.Press(AnyButton(), Place(), Place()); }},
            {1, [this] { job.Release(AnyButton(), Place(), Place()); }},
            {1, [this] { job.DoubleClick(Place(), Place()); }},
            {2, [this] { job.Wheel(120 * (Below(2) * 2 - 1)); }},
            {1, [this] { job.Wheel(40); }},
            {1, [this] { StoredRow(); }},
            {6, [this] { AnyKeyEvent(AnyKey()); }},
        };
        int left = Below(20);
        for (const auto& [weight, act] : gestures) {
            if (left >= 0 && left < weight) act();
            left -= weight;
        }
    }

    std::mt19937 random;
    JobBuilder job;
};

}  // namespace

Job RandomJob(unsigned seed, int gestures) {
    return Gestures(seed).Make(gestures);
}
