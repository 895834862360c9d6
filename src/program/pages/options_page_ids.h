// The controls of the Options page.
#pragma once

#define options_page_dialog 1600
#define options_page_general 1601
#define options_page_start_with_windows 1602
#define options_page_Display_Executing_Status 1603
#define options_page_Check_updates 1604
#define options_page_language_label 1605
#define options_page_language_combo 1606
#define options_page_folder_frame 1607
#define options_page_folder 1608
#define options_page_Command7 1609
#define options_page_Command2 1610
#define options_page_sounds 1611
#define options_page_Play_Menu_Sounds 1612
#define options_page_play_sounds_for_keystrokes 1613
