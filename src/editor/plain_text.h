// The plain text view: what the keys of a row would type, seen by typing them for real into the box `plain_text`. Keys
// that would harm the editor are shown by their names instead.
#pragma once

#include <string>

#include "platform/timers.h"

struct PlainText {
    bool playingPlainText = false;  // Save and Close are disabled meanwhile, and the box takes what comes
    bool outdated = false;          // what is being typed is no longer what is to be seen
    platform::TimerId refill = 0;   // that is asked for
};
extern PlainText plainText;

// Empties the box, gives it the focus, and types the text of Text1. What is being typed already ends first. Nothing
// while a job runs or is recorded, for the keyboard is theirs. Pumps.
//
// The user's own ESC ends it, and so does the focus when it goes elsewhere: no key is sent to another window. Whatever
// the text leaves down is released at the end, and Caps Lock is put back.
void ShowPlainText();

// The same for a row that was selected: when the selection has rested a moment, for whoever walks through the rows
// wants to keep the keyboard, and gets it back at the end.
void RefillPlainText();

// The editor closes: what is being typed ends at its next token.
void EndPlainText();

// The typing itself. Pumps between tokens.
void SendKeysWithoutFunctionKeys(const std::string& text);

// The user, or the typing, presses a key in plain_text. False when it is not to be taken: the user's own gets a box
// that says where keystrokes are edited, which pumps.
bool plain_text_KeyPress();
