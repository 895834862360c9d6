// Titles that will be others on another day.
#pragma once

#include <string_view>

// "letter.docx - Writer", but not "Node.js" or "cmd.exe": a name with the ending of a document.
bool HoldsFileName(std::string_view title);

// "Report 2026-11-22", "22.11.26", "November 2026", in the languages of the dictionary.
bool HoldsDate(std::string_view title);
