// The end of the process.
#pragma once

// QuitProgram: gives back what the process holds of the system and ends it at once. With `save`, the settings are
// saved first; should that fail, the user decides, and it returns when the program is to stay. Pumps while it asks.
void QuitProgram(bool save);
