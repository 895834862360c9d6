// The text log of a run, newest run on top.
#pragma once

#include <cstddef>
#include <string>

struct ReplayLog {
    std::string LogBuffer;  // the log in the making; empty between logged runs
};
extern ReplayLog replayLog;

// Appends a line with the time of day in front, `before` extra line ends before it and `after` after it. The first
// line of a buffer is preceded by the date, and then `before` becomes 2.
void LogLine(const std::string& line, int before = 0, int after = 0);

// A log grows with every run for years: beyond this size, in bytes, the oldest runs go, each as a whole. The newest
// stays, however long it is.
inline constexpr std::size_t LargestLog = std::size_t{5} * 1024 * 1024;

// Puts the buffer before the old text of the file and empties it. A file failure when the file cannot be written; the
// old file is then whole, and the buffer kept.
void WriteLogFile(const std::string& path);
