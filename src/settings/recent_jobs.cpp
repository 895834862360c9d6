#include "settings/recent_jobs.h"

#include <algorithm>

#include "settings/settings.h"

void AddRecentJob(const std::string& path) {
    auto& jobs = settings.RecentJobs;
    auto place = std::find(jobs.begin(), jobs.end(), path);
    if (place == jobs.end()) {
        place = jobs.end() - 1;
        *place = path;
    }
    std::rotate(jobs.begin(), place, place + 1);
}
