// The controls of language_selection.
#pragma once

#define language_selection_dialog 4500
#define language_selection_Picture1 4501
#define language_selection_label 4502
#define language_selection_List1 4503
#define language_selection_explanation 4504
#define language_selection_Command1 4505
