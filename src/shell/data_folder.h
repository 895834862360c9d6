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

// Moves settings.binary and all jobs from the data folder to another one, which is then in force: hotkeys, schedules,
// log paths, recent jobs and desktop shortcuts point there. Log files stay. 1 when that went well; else 0, after a box,
// with the old folder in force and everything in it; copies made so far stay in the new one.
//
// Nothing is lost whatever fails, and wherever: originals are removed only once the new folder holds everything and is
// in force for this process and for the next start. One that cannot be removed is told. A job of the new folder that
// bears the name of another one is kept under another name.
int MoveFiles(const std::string& oldFolder, const std::string& newFolder);

// The Options page's button "Change": lets the user choose a folder, offers to move the files, and makes it the data
// folder. Cancelling, or a change that fails, leaves the old one in force.
void ChangeDataFolder();
