// An explanation in words, in the language of the user interface: for the form behind "Why?", for the clipboard, and
// for the console. Nothing here fails or pumps.
#pragma once

#include <string>
#include <vector>

#include "replay/explanation.h"

// What most likely was the matter, in one to three sentences, with what to do about it.
std::string LikelyReason(const Explanation& explanation);

// The table: a heading for each window that was looked at, and below it what was held against what.
struct ExplanationRow {
    bool heading = false;
    bool differs = false;  // never of a heading
    std::string what;      // of a heading: where the search came upon the window
    std::string recorded;  // of a heading: empty
    std::string live;      // of a heading: the window's title
    std::string equal;     // "equal" or "different"; of a heading: what became of the window
};
std::vector<ExplanationRow> ExplanationTable(const Explanation& explanation);

// Captions of the table's columns.
struct ExplanationColumns {
    std::string what;
    std::string recorded;
    std::string live;
    std::string equal;
};
ExplanationColumns ExplanationHeader();

// All of it as plain text: row, sentences, table; lines end in "\r\n".
std::string ExplanationText(const Explanation& explanation);
