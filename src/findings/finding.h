// What is wrong with a job: a plain value for each fault, and the sentences that tell it.
#pragma once

#include <cstdint>
#include <string>

enum class FindingKind {
    UnreadableJob,
    EmptyJob,
    BadOption,       // of the job
    MissingProgram,  // that the job starts
    LostWindow,      // an index of a chain, window, path or depth that leads nowhere
    LostText,        // the same of a text row, or a part of one without its head
    UnknownInput,    // an event of a kind that there is not
    BadRowOption,    // of the event: the wait for its window, what to do without it
    TimeBackwards,
    NeverReleased,  // a key or button
    NeverPressed,   // a key
    BadKeystrokes,
    OutsideWindow,
    LongDelay,
    LongWindowWait,
    TitleWithFileName,
    TitleWithDate,
};

// Of JobHeader.
enum class JobOption { None, Version, WindowStyle, Speed, SkipMoves, CapsLock, Repeat, Safety, SimilarNames };

struct Finding {
    FindingKind kind = FindingKind::EmptyJob;
    std::int32_t row = 0;     // its number as the editor shows it, from 1; 0: the job as a whole
    std::int32_t event = -1;  // index into Job::Events; -1: none
    std::string detail{};     // the title, path, key or token in question; may be empty
    std::int64_t number = 0;  // seconds, the value of an option or input, a button
    JobOption option = JobOption::None;
    bool operator==(const Finding&) const = default;
};

// One or two sentences each, in the present language: what is wrong, and what to do. Never empty.
std::string WhatIsWrong(const Finding& finding);
std::string WhatToDo(const Finding& finding);

// Both as one line, the row in front: "Row 7: ...".
std::string FindingLine(const Finding& finding);
