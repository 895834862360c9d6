// The controls of form1.
#pragma once

#define form1_dialog 1000
#define form1_Picture1 1001
#define form1_product 1002
#define form1_purpose 1003
#define form1_version 1004
#define form1_command_line 1005
#define form1_tray 1006
#define form1_run_job_button 1007
#define form1_Exit 1008

// Tray_Menu
#define form1_tray_open_tessarine 1101
#define form1_tray_exit 1102
