// The list of jobs that ran lately, settings.RecentJobs: full paths, newest first, empty where there is none.
#pragma once

#include <string>

// Puts `path` first. If it was listed (compared exactly), the entries above it move down; else all do, and the last
// one falls off.
void AddRecentJob(const std::string& path);
