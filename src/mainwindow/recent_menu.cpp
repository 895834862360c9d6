#include "mainwindow/recent_menu.h"

void FillRecentJobsMenu() {}
