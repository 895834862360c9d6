// Marks in the list of saved jobs, at those with which something will go wrong (findings/check_job.h). The check is
// done when the list stands and the program has nothing else to do: one job for each tick of a timer, never during a
// run, a recording or an edit, or while the main window is held. What was found is kept until a file is another.
#pragma once

// Looks at the jobs that the list shows, once for each filling of it.
void CheckJobsOfList();

// Tells in a box what was found at a job, if anything was. Pumps. A range failure for a row that does not exist.
void ShowFindingsOfRow(int row);
