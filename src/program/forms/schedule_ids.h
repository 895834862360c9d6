// The controls of schedule_start_form and schedule_warning.
#pragma once

#define schedule_start_form_dialog 1700
#define schedule_start_form_title 1701
#define schedule_start_form_Label3 1702
#define schedule_start_form_name 1703
#define schedule_start_form_Command1 1704

#define schedule_warning_dialog 1720
#define schedule_warning_Picture1 1721
#define schedule_warning_job 1722
#define schedule_warning_starts_in 1723
#define schedule_warning_Label2 1724
#define schedule_warning_Label6 1725
#define schedule_warning_not_running 1726
#define schedule_warning_question 1727
#define schedule_warning_Command2_button 1728
#define schedule_warning_command3_button 1729
