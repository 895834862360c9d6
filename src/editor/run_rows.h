// Rows of the open job played as they stand in the editor, saved or not: what a person needs who mends a job. The job's
// program is not started, and nothing is repeated. Pumps until the run is over.
#pragma once

// From the first selected row to the end.
void RunFromHere();

// The selected rows alone.
void RunSelectedRows();
