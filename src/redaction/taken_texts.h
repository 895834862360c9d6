// The texts that were taken out, to be looked for in what is left. It is forgotten with this object.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "redaction/text_rows.h"

class TakenTexts {
public:
    void Add(const std::vector<TextToken>& tokens);

    // Whether one of them stands in the text. What that costs does not grow with their number.
    bool StandIn(std::string_view text) const;
    bool StandIn(const std::vector<TextToken>& tokens) const;

private:
    std::unordered_map<std::string, std::vector<std::string>> byBeginning;
};
