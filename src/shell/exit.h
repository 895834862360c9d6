// The end of the process.
#pragma once

// QuitProgram: gives back what the process holds of the system and ends it at once. With `save`, the settings are
// saved first; should that fail, the failure is thrown and the program stays. Does not return otherwise.
void QuitProgram(bool save);
