// The recent jobs in the tray menu. The settings keep the five paths; as yet the menu has no items for them.
#pragma once

// Drops the paths whose file is gone and makes one menu item for each that is left.
void FillRecentJobsMenu();
