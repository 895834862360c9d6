// Asks the update server whether a newer version exists. Nothing is downloaded or installed: the check ends in a page
// in the browser. Blocks until the server has answered, a few seconds at most, and pumps while its box is open.
#pragma once

#include <cstdint>
#include <string>

// 1: the user has asked, and every outcome is told; 0: only the news of a newer version is. Without a server nobody is
// asked.
void CheckForUpdates(std::int16_t interactive);

// The check at the start of the program.
void CheckVersionQuietly();

// What the server has in ver.txt, at most `limitMs` from now; empty on any failure.
std::string FetchLatestVersion(std::int64_t limitMs);

// "3.0.7": exactly five characters, digits with points between them. They are compared as text, so "3.0.10" is none.
bool IsVersionText(const std::string& text);
