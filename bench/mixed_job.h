// A job like any other, of any length.
#pragma once

#include "tests/support/job_builder.h"

// Typing with named keys and a held modifier, moves, clicks and the wheel, in three windows.
inline Job MixedJob(int events) {
    constexpr int enter = 13;
    constexpr int leftShift = 160;
    const JobBuilder::Level edit{"Edit", "", 15};
    const JobBuilder::Level tops[] = {{"Notepad", "Untitled"}, {"Calc", "Calculator"}, {"Progman", "Program Manager"}};
    JobBuilder job;
    for (int round = 0; round < events / 39; ++round) {  // of 39 events each
        job.InWindow(edit, tops[round % 3]).KeyDown(leftShift).KeyDown(leftShift).Type("hello").KeyUp(leftShift);
        job.Type(" x").Key(enter);
        for (int move = 0; move < 13; ++move) job.Move(move, round % 500);
        job.Click(Left, 13, 13).Wheel(120).Wheel(-120).Click(Right, 5, 5).Wheel(60);
    }
    return job.Built();
}
