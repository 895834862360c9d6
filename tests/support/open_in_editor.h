// Opens a job in the editor's state as if it had been read from a file.
#pragma once

#include "dictionary/dictionary.h"
#include "folding/popuni_listu.h"

// The arrays as ReadJob would leave them; nothing is folded yet.
inline void LayOpen(const Job& job) {
    Translate("Job Editor");  // as for the title: a lookup sets the words of the rows
    editState.header = job;
    editState.EditEvents = job.Events;
    editState.PristineEvents = job.Events;
    editState.Strings = job.Strings;
    editState.Windows = job.Windows;
    editState.Chains = job.Chains;
}

inline void OpenInEditor(const Job& job, const std::string& path = "C:\\jobs\\My job.tsj") {
    LayOpen(job);
    PopuniListu(path, true);
}
