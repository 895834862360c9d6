// The list of saved jobs, as far as other parts of the program change what it shows. The main window implements it;
// in the tests a stand-in does.
#pragma once

#include <string>

// FillJobList: rebuilds the list from the data folder. Pumps while it shows a box about a bad file.
void RefreshJobList();

// Selects the first row whose full path is `path`; without such a row nothing changes.
void SelectJobInList(const std::string& path);
