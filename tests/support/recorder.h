// Bodies for the functions of a view that a test only listens to, one a line.
#pragma once

// A call that is noted by its name, or in words, or in words that may have its argument, `value`, in them; one that
// leaves its argument where the test can read it; one that is answered with what the test has put there.
#define NOTES(calls, name)        \
    void name() {                 \
        (calls).push_back(#name); \
    }
#define NOTES_AS(calls, name, words) \
    void name() {                    \
        (calls).push_back(words);    \
    }
#define TELLS(calls, name, Argument, words) \
    void name(Argument value) {             \
        (calls).push_back(words);           \
    }
#define KEEPS(name, Argument, place) \
    void name(Argument value) {      \
        (place) = value;             \
    }
#define ANSWERS(Result, name, place) \
    Result name() {                  \
        return place;                \
    }
