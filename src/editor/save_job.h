// Save and Save As of the open job.
#pragma once

// Ctrl+S and the button. A file that another program has changed since it was opened is not overwritten without a
// question. False when it was not saved: a box has told why, and everything is still in the editor. Pumps.
bool save_button();

// Asks for a name until it is good, or the user cancels. The editor's job is the new file afterwards. Pumps.
void save_as_button();

// Writes the open job. Without `keepOptions` the options of the job page are read from the file first, so that they are
// not lost. Fails as ReadJob and WriteJob do.
void SaveJob(bool keepOptions);

// Windows ends: changes that are not saved are written as a new job "Recovered", over nothing that is there, and nobody
// is asked.
void RescueEditedJob();

// Remembers what the job's file looks like, so that a change from outside is seen.
void RememberFile();
