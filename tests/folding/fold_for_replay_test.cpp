#include "folding/puni_listu.h"
#include "folding/row_lines.h"
#include "jobs/job_file.h"
#include "support/job_builder.h"
#include "support/story.h"

namespace {

JobBuilder Session() {
    JobBuilder job;
    job.InWindow({"Edit", "", 15}, {"Notepad", "Untitled"})
        .Move(1, 1)
        .Click(Left, 1, 1)
        .Type("a")
        .Move(2, 2)
        .KeyDown(13)
        .KeyUp(13)
        .Wheel(120)
        .InWindow({"SysListView32", "FolderView", 1}, {"Progman", "Program Manager"})
        .DoubleClick(5, 5)
        .InNoWindow()
        .Click(Right, 6, 6)
        .InWindow({"#32768", ""})
        .Wheel(40);
    return job;
}

TEST(FoldForReplay, RowsHaveTextInFullFormAndNameOfTopWindow) {
    EXPECT_THAT(
        LinesOf(FoldForReplay(Session().Built())),
        ElementsAre("moves 0-0", "left down 1-2 @ Untitled", "keys 3-7 a{ENTER DOWN}{ENTER UP} @ Untitled", "moves 5-5",
                    "keys 8-8 {WHEEL UP} @ Untitled", "double click 9-9 @ Desktop", "right down 10-11", "wheel 12-12"));
}

TEST(FoldForReplay, ReadsTheFile) {
    const std::string path = "C:\\jobs\\session.tsj";
    simulated::PutFolder("C:\\jobs");
    WriteJob(path, Session().Built());
    EXPECT_EQ(LinesOf(FoldForReplay(path)), LinesOf(FoldForReplay(Session().Built())));
    EXPECT_THROW(FoldForReplay("C:\\jobs\\missing.tsj"), RuntimeFailure);
}

}  // namespace
