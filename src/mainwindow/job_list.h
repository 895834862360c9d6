// The list of saved jobs on the job page, as the start of the program meets it.
#pragma once

// FillJobList: rebuilds the list from the job files of the data folder.
void FillJobList();

// Selects the first job, if there is one; the page then shows that job's properties.
void SelectFirstJob();
