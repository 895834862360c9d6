// The job editor from its opening to its end. One job can be open at a time; its arrays are editState of
// folding/popuni_listu.h, what can be done to it stands in the other headers of this directory, and edit_view.h is what
// they ask of the form.
#pragma once

#include <string>

#include "platform/types.h"

// True from the moment at which a job is read for the editor until the form has gone.
bool EditorIsOpen();

// editJob: opens the job file in the editor, over the main window, which the user cannot use meanwhile, and returns the
// editor's window. While a job is open its window is returned; a box says so if it is another job. 0 when nothing was
// opened, which a box has told. A job that cannot be read is a file failure, and nothing is opened. Changes on the job
// page are asked about first. Pumps where a box is shown.
platform::WindowHandle editJob(const std::string& jobPath);

// What closing the form asks first: whether changes are to be saved. False keeps it open: the user canceled, or the
// save failed, which a box has told. Pumps.
bool MayCloseEditor();

// The form has gone: the keyboard is let go of, and the arrays are given back.
void EditorHasClosed();
