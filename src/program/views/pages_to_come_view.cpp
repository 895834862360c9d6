// What logic asks of the Options page, which has no controls yet.
#include "library/library_view.h"
#include "platform/files.h"
#include "shell/options_view.h"

namespace options_view {

// There is no list to refuse a folder: what counts is whether it can be read.
bool ListJobsOf(const std::string& folder) {
    return platform::FilesIn(folder, ".tsj").has_value();
}

void ShowDataFolder(const std::string&) {}

}  // namespace options_view

namespace library_view {

void ShowStartsWithWindows(bool) {}
void ShowDataFolder(const std::string&) {}

}  // namespace library_view
