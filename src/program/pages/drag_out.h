// Dragging a file out of the program, as out of a folder.
#pragma once

#include <string>

// Offers the file to whatever window the pointer is dropped on, to be copied. The left button is down when this is
// called; it pumps until the button comes up or the user presses Esc. A file that the shell cannot offer is not
// dragged.
void DragFileOut(const std::string& path);
