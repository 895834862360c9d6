// The upper half of the picture: what was done when, and in which window.
#pragma once

#include <string>

#include "timeline/job_actions.h"

struct Section {
    std::string svg;
    double bottom = 0;
};

inline constexpr double PictureWidth = 1280;
inline constexpr double Margin = 28;

Section TimeLanes(const JobActions& job, double top);

// The marks of both halves, to be used by their names: #left, #right, #other, #double, #wheel.
std::string Symbols();
const char* SymbolOf(ActionKind kind);
