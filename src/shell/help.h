// The help: "Tessarine Help.chm" beside the program. One rule for every F1, every link and the About page.
#pragma once

#include <string>

// Opens the page `topic` (a file name, "speed.htm"), or the first page when there is none. A box tells that the file is
// missing, or that it cannot be opened, and pumps. Nothing happens while a run goes on or input is recorded: a window
// that comes to the front would take the input that was meant for another.
void OpenHelp(const std::string& topic);
