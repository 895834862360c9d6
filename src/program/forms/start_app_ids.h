// The controls of start_app.
#pragma once

#define start_app_dialog 4200
#define start_app_Check1 4201
#define start_app_path_label 4202
#define start_app_text_program_path 4203
#define start_app_Command1 4204
#define start_app_Check2 4205
#define start_app_text_command_line 4206
#define start_app_style_label 4207
#define start_app_Combo1 4208
#define start_app_Command2 4209
#define start_app_command3 4210
