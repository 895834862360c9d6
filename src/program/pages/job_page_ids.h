// The controls of the job page.
#pragma once

#define job_page_dialog 1300
#define job_page_saved_jobs 1301
#define job_page_lista_jobs 1302
#define job_page_run_job_button 1303
#define job_page_edit_job_button 1304
#define job_page_schedule_job_button 1305
#define job_page_make_exe_button 1306
#define job_page_frame 1307
#define job_page_button_save_changes 1308

// other_option(0..3), in a row
#define job_page_other_option0 1310
#define job_page_other_option1 1311
#define job_page_other_option2 1312
#define job_page_other_option3 1313

// The help of the one that is seen.
#define job_page_panel_help 1315

// What stands under each of the four: FIRST to LAST of its panel.
#define job_page_speed_FIRST 1320
#define job_page_speed_label 1320
#define job_page_Slider1 1321
#define job_page_Options_speed 1322
#define job_page_updown2 1323
#define job_page_percent 1324
#define job_page_speed_tip 1325
#define job_page_Check6 1326
#define job_page_Check7 1327
#define job_page_Command5 1328
#define job_page_speed_LAST 1328

#define job_page_repeat_FIRST 1340
#define job_page_Option1 1340
#define job_page_options_repeat 1341
#define job_page_times 1342
#define job_page_Option2 1343
#define job_page_repeat_LAST 1343

#define job_page_advanced_FIRST 1360
#define job_page_safety_label 1360
#define job_page_slider_safety_level 1361
#define job_page_Label25 1362
#define job_page_advanced_panel 1363
#define job_page_similiar_window_names 1364
#define job_page_advanced_LAST 1364

#define job_page_hotkey_FIRST 1380
#define job_page_assign_hotkey 1380
#define job_page_hot_ctrl 1381
#define job_page_hot_shift 1382
#define job_page_hot_alt 1383
#define job_page_plus 1384
#define job_page_hot_slovo 1385
#define job_page_hotkey_LAST 1385
