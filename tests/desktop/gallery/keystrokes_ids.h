// The controls of the keystroke gallery; test_keystrokes.py knows the numbers.
#pragma once

#define keystrokes_dialog 100
#define keystrokes_rows 101
#define keystrokes_Option1 102
#define keystrokes_Option2 103
#define keystrokes_Option3 104
#define keystrokes_Text1 105
#define keystrokes_plain_text 106
#define keystrokes_job_description 107
#define keystrokes_keyboard 108
#define keystrokes_Command5 109
#define keystrokes_command3 110
#define keystrokes_state 111
