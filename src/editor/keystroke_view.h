// What keystroke editing asks of the form of the editor, beside edit_view.h. The program implements this; in the tests
// a stand-in does. When the form is gone, nothing happens, and nothing has the keyboard. Nothing here pumps.
#pragma once

#include <string>

namespace keystroke_view {

// Text1, and the keys that it holds down, are to be shown as keystrokeBox has them.
void ShowText();

// Text1 gets the focus.
void FocusText();

// What the user types goes to Text1 and nowhere else: it has the focus, in the window in the foreground, and no menu is
// open. Cheap, for it is asked at every key.
bool TextHasKeyboard();

// The focus goes on to the control behind Text1.
void LeaveText();

// The box `plain_text`. What is appended stands at the end, and the caret behind it.
void ClearPlainText();
void FocusPlainText();
bool PlainTextHasKeyboard();  // as with Text1
void AppendPlainText(const std::string& text);

// The list of rows gets the focus.
void FocusGrid();

}  // namespace keystroke_view
