#include "replay/similar_caption.h"

#include "support/story.h"

namespace {

using platform::WindowHandle;

// The captions of windows of one class, from the front to the back, and the index of the one that is taken, -1 for
// none. A window of another class stands last in the enumeration.
TEST(FindSimilarWindow, TakesTheMostWordsInCommon) {
    const std::tuple<std::string, std::vector<std::string>, std::string, int> cases[] = {
        {"most words", {"b.txt - Text Editor", "Editor", "x"}, "a.txt - Text Editor", 0},
        {"two words", {"My Editor", "My Text Editor", "Text"}, "text editor", 1},
        {"a tie goes to the later", {"b - Editor", "c - Editor", "d"}, "a - Editor", 1},
        {"no word at all is still the class", {"One", "Two"}, "Three", 1},
        {"any case", {"EDITOR", "Viewer"}, "eDitor", 0},
        {"single characters do not count", {"a b c - x", "dd"}, "a b c - dd", 1},
        {"repeated words count for each pair", {"go go", "go now"}, "go go now", 0},
        {"runs of blanks are no words", {"big   blue", "big"}, "  big  blue ", 0},
        {"a namesake behind is not reached by name", {"Editor", "x", "Editor"}, "Editor", 0},
        {"an empty caption is a candidate", {""}, "Editor", 0},
        {"nothing of the class", {}, "Editor", -1},
    };
    std::vector<WindowHandle> old;
    for (const auto& [why, captions, wanted, index] : cases) {
        for (const WindowHandle window : old) simulated::Destroy(window);
        old.assign(1, simulated::AddWindow({.className = "Last", .caption = wanted}));
        std::vector<WindowHandle> windows(captions.size());
        for (std::size_t i = windows.size(); i-- > 0;) {
            windows[i] = simulated::AddWindow({.className = "Editor", .caption = captions[i]});
        }
        const WindowHandle expected = index < 0 ? 0 : windows[static_cast<std::size_t>(index)];
        EXPECT_EQ(FindSimilarWindow("Editor", wanted).window, expected) << why;
        old.insert(old.end(), windows.begin(), windows.end());
    }
}

TEST(FindSimilarWindow, NeverTakesTheLastOfTheEnumeration) {
    simulated::AddWindow({.className = "Editor", .caption = "b - Editor"});
    EXPECT_EQ(FindSimilarWindow("Editor", "a - Editor").window, 0);
    const WindowHandle front = simulated::AddWindow({.className = "Editor", .caption = "Other"});
    const SimilarWindow found = FindSimilarWindow("Editor", "a - Editor");
    EXPECT_EQ(found.window, front) << "not even for a better one";
    EXPECT_EQ(found.caption, "Other");
}

}  // namespace
