// The job editor from its opening to its end. One job can be open at a time; its arrays are editState of
// folding/popuni_listu.h, what can be done to it stands in the other headers of this directory, and edit_view.h is what
// they ask of the form.
#pragma once

#include <string>

#include "platform/types.h"

// True from the moment at which the form is asked for until it has gone.
bool EditorIsOpen();

// editJob: opens the job file in the editor, over the main window, which the user cannot use meanwhile, and returns the
// editor's window. Asks first about changes on the job page. While another job is open a box says so, and the window of
// that one is returned; for the job that is open, its window. 0 when nothing was opened: the user canceled. A job that
// cannot be read is a file failure, and nothing is opened. Pumps.
platform::WindowHandle editJob(const std::string& jobPath);

// What closing the form asks first: whether changes are to be saved. False keeps it open: the user canceled, or the
// save failed, which a box has told.
bool MayCloseEditor();

// The form has gone: the keyboard is let go of, the arrays are given back, the main window is the user's again.
void EditorHasClosed();
