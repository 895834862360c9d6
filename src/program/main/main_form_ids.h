// The controls of form1.
#pragma once

#define form1_dialog 1000
#define form1_tabs 1001
#define form1_Exit 1002

// Tray_Menu
#define form1_tray_open_tessarine 1101
#define form1_tray_exit 1102
#define form1_record_new 1103
#define form1_run_last_job 1110
