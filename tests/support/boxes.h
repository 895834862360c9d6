// The boxes that a test has seen, each as "title|text".
#pragma once

#include <string>
#include <vector>

#include "simulated/desktop.h"

inline std::vector<std::string> Boxes() {
    std::vector<std::string> boxes;
    for (const simulated::ShownBox& box : simulated::ShownBoxes()) boxes.push_back(box.title + "|" + box.text);
    return boxes;
}

inline std::string LastBox() {
    return Boxes().empty() ? "" : Boxes().back();
}
