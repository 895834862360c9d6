// The menu bar of the job editor, and the keys of its entries. An entry does what the button of its number does, and
// can be chosen when that can be pressed.
#pragma once

#include <windows.h>

#include "widgets/mnemonics.h"

// The entries of `form`'s menu in the present language, and their letters. `letters` takes those of the bar, which no
// button may have.
void WordMenu(HWND form, Mnemonics& letters);

// A menu opens: what cannot be done now is grey.
void EnableMenuEntries(HWND form, HMENU menu);

// The number of the entry that a key stands for, with what is held beside it; 0 for none. `forText`: the keyboard is in
// a box in which texts are typed, and what a text box knows itself stays there. `inGrid`: the keys of the grid alone.
int CommandOfKey(WPARAM key, bool forText, bool inGrid);
