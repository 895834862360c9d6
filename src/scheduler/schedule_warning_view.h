// `schedule_warning`, the question whether to leave the program although a scheduled run is near. The form implements
// this; in the tests a stand-in does.
#pragma once

namespace schedule_warning_view {

// Shows the form, with the texts of scheduleWarning, centred and modal over the main window, until it is unloaded. The
// buttons call Command2 and command3 of scheduleWarning; closing the form is command3. Pumps.
void ShowModal();

void Refresh();  // Label2 and Label6
void Unload();   // nothing when it is not shown

}  // namespace schedule_warning_view
