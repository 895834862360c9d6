// The global key combinations that start jobs. The table in the settings keeps the combinations that a user gave to
// jobs; these two will give it to the system and take it back. As yet no combination is claimed from the system.
#pragma once

// Gives every combination of the table to the system, and Ctrl+Shift+N for a new recording. Refusals are ignored: what
// another program holds is silently dead here.
void RegisterAllHotkeys();

// Takes all of them back. Pumps once when there was anything to take back.
void UnregisterAllHotkeys();
