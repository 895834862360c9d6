#include "folding/held_keys.h"

#include <gtest/gtest.h>

#include <random>

namespace {

const int modifiers[] = {160, 161, 162, 163, 164, 165};

// What a row's text may grow by: tokens of events, and pieces that only a stored text has, broken ones included.
const char* const pieces[] = {
    "a",
    "A",
    "}",
    "{L_CTRL DOWN}",
    "{L_CTRL UP}",
    "{L_SHIFT DOWN}",
    "{L_SHIFT UP}",
    "{R_SHIFT UP}",
    "{CTRL DOWN}",
    "{ALT}",
    "{ALT DOWN}",
    "{ALT UP}",
    "{shift down}",
    "{Shift}",
    "{a DOWN}",
    "{WHEEL UP}",
    "{F5 DOWN}",
    "{NONSENSE UP}",
    "{L_CTRL",
    " ",
    "{}",
};

// The walk back through the text that the incremental reading takes the place of.
bool HeldByWalkingBack(const std::string& text, int vk) {
    return KeyIsHeld(text, TokenCount(text) - 1, vk);
}

TEST(HeldKeys, AgreesWithTheWalkBackThroughTheText) {
    std::mt19937 random(7);
    HeldKeys heldKeys;
    for (int row = 0; row < 300; ++row) {
        heldKeys.StartRow();
        std::string text;
        for (int i = 0; i < 20; ++i) {
            text += pieces[random() % std::size(pieces)];
            const int vk = modifiers[random() % std::size(modifiers)];
            ASSERT_EQ(heldKeys.IsHeld(text, vk), HeldByWalkingBack(text, vk)) << text << " key " << vk;
        }
    }
}

}  // namespace
