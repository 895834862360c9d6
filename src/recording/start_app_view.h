// `start_app`, the dialog before a recording. The form implements this; in the tests a stand-in does.
#pragma once

namespace start_app_view {

// Shows the dialog, centred, modal, until AcceptStartApp says that it may close or CancelStartApp was called; closing
// the window is a cancel. Pumps.
void ShowModal();

}  // namespace start_app_view
