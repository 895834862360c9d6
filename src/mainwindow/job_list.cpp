#include "mainwindow/job_list.h"

#include "library/job_library.h"

void FillJobList() {
    job_library::FillJobList();
}

void SelectFirstJob() {
    if (jobLibrary.lista_jobs.ListCount() > 0) jobLibrary.lista_jobs.SelectItem(0);
}
