// The controls of Save_As_Form.
#pragma once

#define Save_As_Form_dialog 4300
#define Save_As_Form_name_label 4301
#define Save_As_Form_name 4302
#define Save_As_Form_description_label 4303
#define Save_As_Form_description 4304
#define Save_As_Form_create_shortcut_on_desktop 4305
#define Save_As_Form_please_wait 4306
#define Save_As_Form_Command1 4307
#define Save_As_Form_Command2 4308
#define Save_As_Form_Timer1 4309
