#include "support/edit_view_stand_in.h"

#include "editor/edit_view.h"
#include "support/recorder.h"

EditViewStandIn editViewStandIn;

namespace edit_view {

ANSWERS(bool, MayLeaveJobPage, editViewStandIn.mayLeaveJobPage)
NOTES(editViewStandIn.calls, ShowRows)
NOTES(editViewStandIn.calls, RepaintRows)
NOTES(editViewStandIn.calls, PutAside)
NOTES(editViewStandIn.calls, BringBack)

void Refresh() {}

platform::WindowHandle Show() {
    editViewStandIn.calls.emplace_back("Show");
    return editViewStandIn.window;
}

bool AskJobName(std::string& name) {
    editViewStandIn.namesOffered.push_back(name);
    if (editViewStandIn.names.empty()) return false;
    name = editViewStandIn.names.front();
    editViewStandIn.names.pop_front();
    return true;
}

}  // namespace edit_view
