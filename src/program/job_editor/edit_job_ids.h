// The controls of edit_job_form. A menu entry has the number of the button that does the same.
#pragma once

#define edit_job_dialog 5000
#define edit_job_menu_dialog 5001

// toolbar
#define edit_job_save_button 5002
#define edit_job_save_as_button 5003
#define edit_job_undo 5004
#define edit_job_redo 5005
#define edit_job_delete_event 5006
#define edit_job_exit_button 5007
#define edit_job_insert_above 5008
#define edit_job_start_recording_above 5009
#define edit_job_insert_below 5010
#define edit_job_start_recording_below 5011
#define edit_job_run_from_here 5012
#define edit_job_run_only_this 5013
#define edit_job_select_all 5014
#define edit_job_why 5015

// grid and pane
#define edit_job_grid 5020
#define edit_job_timing 5021
#define edit_job_delay_label 5022
#define edit_job_delay_mk 5023
#define edit_job_delay_unit 5024
#define edit_job_delay_set 5025
#define edit_job_duration_label 5026
#define edit_job_duration_mk 5027
#define edit_job_duration_unit 5028
#define edit_job_duration_set 5029
#define edit_job_target 5030
#define edit_job_Label5 5031
#define edit_job_wait_for_window_text 5032
#define edit_job_Label8 5033
#define edit_job_wait_for_window_ms 5034
#define edit_job_wait_unit 5035
#define edit_job_Label9 5036
#define edit_job_if_no_window 5037

// keystrokes
#define edit_job_Option1 5040
#define edit_job_Option2 5041
#define edit_job_Option3 5042
#define edit_job_Text1 5043
#define edit_job_plain_text 5044
#define edit_job_job_description 5045
#define edit_job_Command5 5046
#define edit_job_command3 5047
#define edit_job_keyboard 5048

// the line at the bottom
#define edit_job_program_label 5050
#define edit_job_Browse_Text 5051
#define edit_job_Label6 5052
#define edit_job_Label7 5053

#define save_name_dialog 5100
#define save_name_prompt 5101
#define save_name_name 5102
#define save_name_ok 5103
#define save_name_cancel 5104
