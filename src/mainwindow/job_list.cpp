#include "mainwindow/job_list.h"

void FillJobList() {}

void SelectFirstJob() {}
