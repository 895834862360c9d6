#include "timeline/picture.h"

#include <regex>

#include "bench/mixed_job.h"
#include "findings/good_job.h"
#include "folding/random_job.h"
#include "support/job_builder.h"
#include "support/story.h"
#include "timeline/job_actions.h"
#include "timeline/time_axis.h"

namespace {

// Whether every tag is closed by its own, and no text or attribute has a sign that marks something up.
bool IsWellFormed(const std::string& svg) {
    static const std::regex tag(R"(<(/?)([a-zA-Z]+)((?: [a-zA-Z:-]+="[^"<]*")*)(/?)>)");
    std::vector<std::string> open;
    std::size_t end = 0;
    for (std::sregex_iterator match(svg.begin(), svg.end(), tag); match != std::sregex_iterator(); ++match) {
        const std::string between = svg.substr(end, static_cast<std::size_t>(match->position()) - end);
        const bool style = !open.empty() && open.back() == "style";
        if (between.find('<') != std::string::npos || (!style && between.find('>') != std::string::npos)) return false;
        end = static_cast<std::size_t>(match->position() + match->length());
        if (match->str(4) == "/") continue;
        if (match->str(1).empty()) {
            open.push_back(match->str(2));
        } else {
            if (open.empty() || open.back() != match->str(2)) return false;
            open.pop_back();
        }
    }
    return open.empty() && svg.find_first_not_of('\n', end) == std::string::npos;
}

TEST(Picture, IsWellFormedForAnyJob) {
    EXPECT_TRUE(IsWellFormed(PictureOf(Job(), "empty")));
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Job damaged = RandomJob(seed, 30);
        for (std::size_t i = 0; i < damaged.Events.size(); i += 7) {
            damaged.Events[i].word[static_cast<std::size_t>(i % 6)] = INT32_MAX - 5;
            damaged.Events[i].WindowChainIndex = 1000;
        }
        EXPECT_TRUE(IsWellFormed(PictureOf(GoodJob(seed), "good"))) << seed;
        EXPECT_TRUE(IsWellFormed(PictureOf(damaged, "damaged"))) << seed;
    }
}

TEST(Picture, ShowsWindowsTypingAndTheJobsNameInPlainText) {
    const Job job =
        JobBuilder().InWindow({"Notepad", "<b>\"R&D\" \x01\xE4"}).Type("hello").Wait(5000).Click(Left, 10, 10).Built();
    const std::string svg = PictureOf(job, "a<b");
    EXPECT_TRUE(IsWellFormed(svg));
    for (const char* text : {"<title>a&lt;b</title>", "&lt;b&gt;&quot;R&amp;D&quot;  \xC3\xA4", "2 rows", "1 window, ",
                             "href=\"#left\"", ">hello<", ">5 s<", "prefers-color-scheme: dark"}) {
        EXPECT_THAT(svg, HasSubstr(text));
    }
}

TEST(Picture, IsBoundedForALongJob) {
    EXPECT_LT(PictureOf(MixedJob(100'000), "long").size(), 1'000'000U);
}

TEST(TimeAxis, BreaksWhatWouldLeaveNoRoomForAnythingElse) {
    std::vector<Action> actions(3);
    actions[0].end = 10'000;
    actions[1].start = actions[1].end = 11'500;
    actions[2].start = 3'600'000;
    actions[2].end = 3'605'000;
    const TimeAxis axis(actions, 0, 1000);
    EXPECT_GT(axis.PlaceOf(10'000), 400);
    EXPECT_LT(axis.PlaceOf(3'600'000) - axis.PlaceOf(11'500), 200);
    EXPECT_NEAR(axis.PlaceOf(3'605'000), 1000, 0.1);
    EXPECT_THAT(axis.Waits(), SizeIs(2));
    EXPECT_TRUE(axis.Waits()[1].isShortened && !axis.Waits()[0].isShortened);
    double last = -100;
    for (const std::int64_t tick : axis.Ticks()) {
        EXPECT_GT(axis.PlaceOf(tick), last + 40);
        last = axis.PlaceOf(tick);
    }
}

}  // namespace
