// What the editor's logic asks of its form, edit_job_form. The program implements this; in the tests a stand-in does.
// Only Show, AskJobName and what says so pump.
#pragma once

#include <cstdint>
#include <string>

#include "platform/types.h"

namespace edit_view {

// The changes on the job page are asked about, as before every command there (PitajSpremitiPromjene). False when they
// were to be saved and could not be. Pumps.
bool MayLeaveJobPage();

// Makes the form, owned by the main window, in its place of last time, and gives the grid the focus. Its window, 0 when
// the system refuses.
platform::WindowHandle Show();

// Rows have come, gone or changed: all that the form shows is shown afresh, the selection of editSelection included.
void ShowRows();

// The same rows in other words: times of many of them, or the text of one.
void RepaintRows();

// Buttons, title, pane and description, as the model has them.
void Refresh();

// The box that asks for a file name, with this one in it. False when the user canceled. Pumps.
bool AskJobName(std::string& name);

// Out of sight and of use while a piece is recorded, and back.
void PutAside();
void BringBack();

}  // namespace edit_view
