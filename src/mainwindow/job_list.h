// The list of saved jobs on the job page. As yet the page shows no list, and a job is started by its path.
#pragma once

// FillJobList: rebuilds the list from the job files of the data folder.
void FillJobList();

// Selects the first job, if there is one; the page then shows that job's properties.
void SelectFirstJob();
