// Finds a stand-in for a window whose caption has changed, such as an editor that shows another document. Asks every
// top-level window of the desktop, so it is for the end of a wait. Never pumps.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/types.h"
#include "replay/search_listener.h"

struct SimilarWindow {
    platform::WindowHandle window = 0;  // 0 for none
    std::string caption;
};

// Of the top-level windows of exactly this class, the one whose caption has the most words in common with `caption`;
// on a tie the later one. A window without a word in common is better than none: the class counts for more.
// `tell`, where it is given, hears what became of each window of the class.
using SimilarTold = std::function<void(LiveChain&, Fate)>;
SimilarWindow FindSimilarWindow(const std::string& className, const std::string& caption, const SimilarTold& tell = {});

// How many words two captions have in common: pairs of equal words of two characters or more, in any case.
std::ptrdiff_t WordsInCommon(const std::string& recorded, const std::string& live);
