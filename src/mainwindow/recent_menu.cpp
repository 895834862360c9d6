#include "mainwindow/recent_menu.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "replay/run_job.h"
#include "settings/settings.h"

RecentMenu recentMenu;

namespace {

// The later paths move up, and the last places become empty.
template <class Condition>
void DropRecentJobs(Condition condition) {
    auto& jobs = settings.RecentJobs;
    std::fill(std::remove_if(jobs.begin(), jobs.end(), condition), jobs.end(), std::string());
}

bool IsMissing(const std::string& path) {
    return platform::StateOf(path) == platform::FileState::Missing;
}

void TellMissing(const std::string& path) {
    platform::ShowBox(Translate1("File '%1' cannot be found", path) + ". " + Translate("Cannot execute job"),
                      Translate("File not found"));
}

}  // namespace

void FillRecentJobsMenu() {
    DropRecentJobs([](const std::string& path) { return path.empty() || IsMissing(path); });
    recentMenu = {};
    for (const std::string& path : settings.RecentJobs) {
        if (path.empty()) continue;
        recentMenu.run_last_job.push_back(BaseName(path));
        recentMenu.paths.push_back(path);
    }
}

void run_last_job(int item) {
    const std::string path = CheckedAt(recentMenu.paths, item, "Recent job");
    if (!IsMissing(path)) {
        RunJob(path, 0, "", false);
        return;
    }
    TellMissing(path);
    DropRecentJobs([&](const std::string& recent) { return recent == path; });
    FillRecentJobsMenu();
}
