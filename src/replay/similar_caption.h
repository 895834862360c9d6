// Finds a stand-in for a window whose caption has changed, such as an editor that shows another document. Asks every
// top-level window of the desktop, so it is for the end of a wait. Never pumps.
#pragma once

#include <string>

#include "platform/types.h"

struct SimilarWindow {
    platform::WindowHandle window = 0;  // 0 for none
    std::string caption;
};

// Of the top-level windows of exactly this class, the one whose caption has the most words in common with `caption`;
// on a tie the later one. A window without a word in common is better than none: the class counts for more.
SimilarWindow FindSimilarWindow(const std::string& className, const std::string& caption);
