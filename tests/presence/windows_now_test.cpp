#include "presence/windows_now.h"

#include "support/job_builder.h"
#include "support/story.h"

namespace {

JobBuilder::Level Recorded(const char* className, const char* caption, platform::Rect place) {
    return {className, caption, 0, {44, 0, 1, {}, {}, place}};
}

std::vector<std::string> Lines(const Job& job) {
    std::vector<std::string> lines;
    for (const WindowNow& window : CheckWindowsNow(job).windows) {
        lines.push_back(std::to_string(window.row) + ": " + SentenceOf(window));
    }
    return lines;
}

TEST(CheckWindowsNow, TellsWhatARunWouldChoose) {
    simulated::AddWindow({.className = "Notepad", .caption = "Untitled", .rect = {0, 0, 500, 400}});
    simulated::AddWindow({.className = "Writer", .caption = "Report 12", .rect = {0, 0, 500, 400}});
    simulated::AddWindow({.className = "Twin", .caption = "Twin", .rect = {10, 10, 500, 400}});
    simulated::AddWindow({.className = "Twin", .caption = "Twin", .rect = {20, 20, 500, 400}});
    JobBuilder builder;
    builder.InWindow(Recorded("Notepad", "Untitled", {90, 90, 500, 400})).Click(Left, 100, 100).Click(Right, 9, 9);
    builder.InWindow(Recorded("Writer", "Report 11", {-3000, 0, -2000, 400})).Click(Left, -2500, 100).Move(9999, 0);
    builder.InWindow(Recorded("Twin", "Twin", {0, 0, 500, 400})).Key('A');
    builder.InWindow(Recorded("Gone", "", {0, 0, 500, 400})).Wheel(120, 9999, 0);
    Job& job = builder.Built();
    job.Chains.push_back({77, {}, 0});

    EXPECT_THAT(Lines(job), ElementsAre("1: The window 'Untitled' is there.",
                                        "3: The window 'Report 11' is not there; its recorded place is on no monitor.",
                                        "4: The window 'Twin' is there more than once, and none stands where it was "
                                        "recorded.",
                                        "5: The window without a title (Gone) is not there."));
    EXPECT_THAT(CheckWindowsNow(job).rowsOffMonitors, ElementsAre(3));

    job.SimilarWindowNames = 1;
    EXPECT_THAT(Lines(job)[1], HasSubstr("is not there; 'Report 12' would be taken for it"));
    simulated::SetMonitors({{0, 0, 1280, 1024}, {-3000, 0, 0, 1000}});
    EXPECT_THAT(Lines(job)[1], Not(HasSubstr("monitor")));
    EXPECT_THAT(CheckWindowsNow(job).rowsOffMonitors, IsEmpty());

    job.SafetyLevel = 2;
    EXPECT_THAT(Lines(job), IsEmpty());
}

}  // namespace
