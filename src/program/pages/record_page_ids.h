// The controls of the record page.
#pragma once

#define record_page_dialog 1200
#define record_page_Picture1 1201
#define record_page_heading 1202
#define record_page_explanation 1203
#define record_page_command3 1204
#define record_page_shortcut 1205
#define record_page_stop_hint 1206
#define record_page_options 1207
#define record_page_Capture_Mouse_Moves 1208
#define record_page_Display_Recording_Window 1209
#define record_page_Display_Start_Program_Dialog 1210
#define record_page_display_countdown_check 1211
#define record_page_countdown_label 1212
#define record_page_countdown_period 1213
