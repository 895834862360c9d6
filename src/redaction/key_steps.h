// Which presses and releases of a job stay when rows are taken out of it, so that no key is left down and no release of
// a letter tells what was pressed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "jobs/job_records.h"
#include "redaction/text_rows.h"

// A press or release: a raw key event, or a token of a stored text.
struct KeyStep {
    std::int32_t event = 0;
    std::int32_t token = 0;  // of the event's text; 0 for a raw key
    std::int32_t done = 0;   // how many things are done before it that a modifier can be held for, and that stay
    int vk = 0;
    bool isDown = false;
    bool isTaken = false;  // stands in a row that is taken out, or in none
    bool stays = true;
    bool wasTaken = false;                    // of a release: the press stood in a row that is taken out
    std::int32_t takenRow = TextRows::NoRow;  // of a release that goes: the row of its press
};

// Of a text row; nullptr for all other events, and where the index leads nowhere.
const std::string* StoredTextOf(const Job& job, const JobEvent& event);

class KeySteps {
public:
    // `isTaken` by event: whether what it types is taken out.
    KeySteps(const Job& job, const std::vector<bool>& isTaken, const TextRows& rows, TokenReader& reader);

    // Those of an event, in order; mostly none.
    std::span<const KeyStep> Of(std::size_t event) const {
        return {steps.data() + firsts[event], steps.data() + firsts[event + 1]};
    }

private:
    void Collect(const Job& job, const std::vector<bool>& isTaken, TokenReader& reader);
    void CollectText(const std::string& text, KeyStep step, std::int32_t& done, TokenReader& reader);
    void Match(const TextRows& rows);
    void Decide(std::size_t firstDown, std::size_t up, const TextRows& rows);

    std::vector<KeyStep> steps;
    std::vector<std::size_t> firsts;  // by event: its first step; one more at the end
};
