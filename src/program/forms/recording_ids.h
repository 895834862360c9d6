// The controls of recording.
#pragma once

#define recording_dialog 4000
#define recording_Command1 4001
#define recording_Command2 4002
#define recording_Picture1 4003
#define recording_Label1 4004
#define recording_label_vrijeme 4005
#define recording_label_info 4006
