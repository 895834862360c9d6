#include "support/job_list_view_stand_in.h"

#include "jobs/job_list_view.h"

JobListViewStandIn jobListViewStandIn;

void RefreshJobList() {
    jobListViewStandIn.calls.push_back("refresh");
}

void SelectJobInList(const std::string& path) {
    jobListViewStandIn.calls.push_back("select " + path);
}
