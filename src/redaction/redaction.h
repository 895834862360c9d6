// Takes typed texts out of a job, so that it can be given to somebody who is not to read them. Typed texts are what was
// typed into the rows that the editor shows as keystrokes, be they stored as texts or as keys. Rows of modifiers alone
// (Ctrl, for a click) and of the wheel are none.
//
// A row that is taken out stays as a text row with one token in it, the release of a key that no keyboard has: it goes
// to the same window at the same time and types nothing. Without it neighbours would become one row, the numbers of all
// rows behind it would change, and the next row would find another window in front; and a text row without a token is
// none that a run accepts. The row's end keeps its time, all else of it goes: letters, rhythm, and how many there were.
// The release of a letter goes from other rows, too; in a row of the wheel it was what let keys behind it join that
// row, which become a row of their own. A modifier that is down beyond the row stays down, and is released where it
// was.
//
// The texts are not in JobBytes of the job any more: unused strings have gone, and so have old key codes in events of
// text rows. A file must be written so that nothing of a longer old one stays behind it (SaveFile with OldTail::Goes);
// WriteJob keeps it. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jobs/job_records.h"

// Which texts go: those of the rows with these numbers, those typed into these windows, or all. All includes keys that
// were pressed while there was no window, which no row shows.
struct RedactionChoice {
    bool all = false;
    std::vector<std::int32_t> rows{};    // as the editor numbers them, from 1
    std::vector<std::string> windows{};  // captions of top-level windows, in the code page
};

// What was taken out; never the text itself.
struct RedactedRow {
    std::int32_t number = 0;  // 0: keys in no row
    std::string window;  // caption of the top-level window; without one, or where the text stands in it: "window 3"
    std::int32_t keystrokes = 0;
};

// A place where a text that was taken out still stands, as whoever looks at it will see. Letter case does not count,
// nor do texts of less than three characters.
struct RedactionFinding {
    enum class Place { Caption, Description, ProgramPath, CommandLine, Row };
    Place place = Place::Caption;
    std::int32_t index = 0;  // of the window, from 0; number of the row
};

struct RedactionAccount {
    std::vector<RedactedRow> rows;
    std::vector<RedactionFinding> findings;
};

// A row that there is not or that has no typed text, and a window into which nothing was typed, are range failures; the
// job is then as it was.
RedactionAccount Redact(Job& job, const RedactionChoice& choice);

// For a person, in English.
std::string SentenceOf(const RedactionFinding& finding);
