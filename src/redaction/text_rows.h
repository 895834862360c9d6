// The keystroke rows of a job as the editor shows them, and what they hold.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"
#include "keystrokes/parsing.h"

// One token of a text.
struct TextToken {
    std::string text;
    int vk = KeyCodeUnknown;
    int action = ActionNone;
};

// Reads tokens, and remembers the names of keys.
class TokenReader {
public:
    // The whole text as one token that is no key where a "{" is never closed.
    std::vector<TextToken> Read(const std::string& text);

private:
    KeyNameMemory names;
};

// "{L_SHIFT DOWN}", for any key.
std::string TokenText(int vk, int action);

bool IsModifier(int vk);

// Neither the wheel, nor a release, nor a modifier.
bool IsTyped(const TextToken& token);

struct TextRow {
    std::int32_t number = 0;  // as the editor shows it
    std::int32_t head = 0;    // index of the first event, and of the last
    std::int32_t last = 0;
    std::int32_t chain = NoWindowMarker;
    std::vector<TextToken> tokens;
    bool isTyped = false;  // holds a typed text
};

struct TextRows {
    static constexpr std::int32_t NoRow = -1;

    std::vector<TextRow> rows;
    std::vector<std::int32_t> rowOf;  // by event: its row, or NoRow
    std::vector<bool> isHidden;       // by event: a move that the editor does not show
};

// Takes any job.
TextRows TextRowsOf(const Job& job, TokenReader& reader);
