// The one folder that holds all of a user's state: the .tsj job files and settings.binary. How it is found and made at
// start, and how the user moves it. Only ChangeDataFolder and MoveFiles show boxes, and so pump.
#pragma once

#include <string>

// Sets folders.DataFolder from the registry (DataDir). When nothing is set there, or that folder is gone, it becomes
// the folder "Tessarine" among the user's documents, and the registry is told. Needs folders.PersonalFolder.
void ResolveDataFolder();

// Creates folders.DataFolder, one level only. Failures are ignored: later saves tell.
void EnsureDataFolder();

// True when a file can be created in the folder and removed again.
bool IsFolderWritable(const std::string& folder);

// Copies settings.binary and all jobs to the new folder, over what is there, then removes the old files. Log files
// stay. 1 when all went well; else 0, after a box. A failed copy leaves every original in place, and the copies made so
// far as well.
int MoveFiles(const std::string& oldFolder, const std::string& newFolder);

// The Options page's button "Change": lets the user choose a folder, offers to move the files, and makes it the data
// folder. Cancelling, or a move that fails, leaves the old one in force.
void ChangeDataFolder();
