// What stands in the text rows of a job: each text is read once, however often it is typed.
#pragma once

#include <string>
#include <vector>

#include "jobs/job_records.h"
#include "keystrokes/parsing.h"

struct TypedKey {
    int vk = 0;
    int action = 0;
};

struct TypedText {
    std::vector<TypedKey> keys;  // none for a text that cannot be typed
    bool unclosed = false;       // an opening brace is never closed
    std::string badToken{};      // the first that is no key, or whose word is neither DOWN nor UP
    bool IsGood() const { return !unclosed && badToken.empty(); }
};

class TypedTexts {
public:
    // `anyLetter`: one beyond ASCII, for which this keyboard has no key, is passed over.
    TypedTexts(const std::vector<std::string>& jobStrings, bool anyLetter)
        : strings(jobStrings), anyLetterWillDo(anyLetter), known(jobStrings.size()) {}

    // By the number of a text, from 1; it has to exist.
    const TypedText& Of(std::int32_t stringIndex);

private:
    TypedText Read(const std::string& text);

    struct Entry {
        bool read = false;
        TypedText text;
    };

    const std::vector<std::string>& strings;
    const bool anyLetterWillDo;
    std::vector<Entry> known;
    KeyNameMemory names;
};
