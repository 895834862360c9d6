// The shortcut to a job on the user's desktop. It points at the job's file; what opens the file is the shell's affair.
// A shortcut that cannot be made or read is not spoken of.
#pragma once

#include <string>

// Writes "<desktopFolder>\<jobName>.lnk". Does nothing without a path or a folder. Asks before it takes the place of
// one that is made for another target, and pumps meanwhile.
void CreateJobShortcut(const std::string& jobPath, const std::string& desktopFolder, const std::string& jobName);

// The desktop's shortcut to a job whose file has moved, if there is one, points to the new place.
void MoveJobShortcut(const std::string& oldPath, const std::string& newPath, const std::string& desktopFolder);

// Deletes the desktop's shortcut of this name if it points at the job: one of the same name may be made for another
// target.
void DeleteJobShortcut(const std::string& jobPath, const std::string& desktopFolder, const std::string& jobName);
