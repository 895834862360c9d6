// The controls of the Options page that deal with the data folder. The main window implements them; in the tests a
// stand-in does.
#pragma once

#include <string>

namespace options_view {

// Points the file list (file_savedjobs) at the jobs of `folder`. False when the list refuses the folder.
bool ListJobsOf(const std::string& folder);

// Shows the path of the data folder in its field.
void ShowDataFolder(const std::string& folder);

}  // namespace options_view
