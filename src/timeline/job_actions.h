// A job as what a person has done, in order: the rows of its fold with the windows they are for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"

enum class ActionKind { Typing, Wheel, Moves, LeftClick, RightClick, OtherClick, DoubleClick, Press, Release };

struct Action {
    ActionKind kind = ActionKind::Moves;
    std::int32_t number = 0;  // of its row, from 1; of moves, that of the row above
    std::int64_t start = 0;   // ms from the start of the job; never before the end of the action in front of it
    std::int64_t end = 0;
    std::size_t lane = 0;
    platform::Point place;
    bool hasPlace = false;
    std::string text;  // keys of a row of typing
};

// A top-level window of the job, by class and caption.
struct Lane {
    std::string name;        // caption, or what stands for it; in the system code page
    platform::Rect place{};  // the first that was recorded, empty when none is known
    std::size_t actions = 0;
};

struct JobActions {
    static constexpr std::size_t MostLanes = 16;  // the last of them has what does not fit

    std::vector<Action> actions;
    std::vector<Lane> lanes;            // in the order of their first use
    std::vector<platform::Point> path;  // of the mouse: every place of a move, press or release
    std::int32_t rows = 0;              // with a number
    std::size_t windows = 0;
};

JobActions ActionsOf(const Job& job);
