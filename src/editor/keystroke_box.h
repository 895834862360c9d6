// Text1, the box in which a keystroke row is edited: not by typing its text, but by pressing keys, each of which
// becomes a token at the caret. The caret stands between tokens, never inside of one. The box shows the shortest form
// of the row's text (ReduceKeystrokes); what is changed in it goes into the job by SetKeyText, and is one step of the
// history until something else is done.
//
// Keys come from the keyboard hook (keystroke_hook.h) and from the on-screen keyboard. All of them are put into the
// text one after the other, in the order in which they were pressed, whatever pumps meanwhile. Only the alarm of
// KeyIsHeld and ReduceKeystrokes, for a stored token that nobody can read, pumps while keys are put in; boxes about a
// bad key come from the next pump, one at a time.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

// The three views of the place below the grid, of which one is to be seen.
enum class KeystrokeView { Keystrokes, PlainText, Description };  // Option1, Option2, Option3

// A key on its way into the text.
struct PressedKey {
    int virtualKey = 0;
    bool up = false;
    bool forced = false;      // from the on-screen keyboard: it is put in, whatever it means to the box
    std::int32_t keyRow = 0;  // that it was pressed for
};

struct KeystrokeBox {
    std::string text;           // Text1
    int SelStart = 0;           // the caret, in characters: where a token begins, or the end
    std::string Tag;            // "wheel" on a row of wheel notches, else empty
    bool enabled = false;       // Text1, plain_text, Option1 and Option2
    bool wheelButtons = false;  // Command5 and command3 are enabled
    KeystrokeView view = KeystrokeView::Keystrokes;
    std::int32_t keyRow = -1;  // index into the keystroke rows; -1 when none is shown

    // The on-screen keyboard: virtual keys, 0 for none.
    int keyUnderMouse = 0;
    int keyOfPopup = 0;

    std::deque<PressedKey> waiting;
    bool handling = false;      // the re-entry flag of the key handlers
    bool askedThePump = false;  // to go on with what waits
    bool tellingOfKey = false;  // a box about a bad key is open, or will be
};
extern KeystrokeBox keystrokeBox;

// A token of a text and where it stands, in characters. A "{" that is not closed makes the rest of the text one token,
// which can be taken out and nothing else.
struct TokenSpan {
    int start = 0;
    int length = 0;
    int End() const { return start + length; }
};
std::vector<TokenSpan> SpansOf(const std::string& text);
bool IsOpenRest(const std::string& text, const TokenSpan& span);

// The number of the token that holds a position of Text1, of the last one at the end; -1 in an empty text.
int TokenAtCaret(int position);

// With the editor's form, and when it goes, however it goes: the keyboard hook, the plain text and the on-screen
// keyboard come and go along. To close once more does no harm.
void OpenKeystrokes();
void CloseKeystrokes();

// The row that the grid's selection is on: its text with the caret at the end, or nothing to edit. Keys that wait are
// put into the row before. Where the plain text is seen, it is typed anew, from a pump. Pumps for an alarm alone.
void ShowKeystrokeRow(std::int32_t keyRow);
void KeystrokesEnabled(bool on);

// --- keys ---

// A key that goes down or comes up. `forced`: from the on-screen keyboard. Inside one of these, a second one waits for
// the end of the first.
void Text1KEYDOWN(int vk, bool forced);
void Text1KEyUP(int vk, bool forced);

// The same for a hook: returns at once, and the key is put in from the next pump outside of all hook calls.
void NoteKey(int vk, bool up);

// Puts in what waits, now; nothing from inside of a handler.
void TakeWaitingKeys();

// Whether the text before the caret leaves the key down.
bool IsHeldAtCaret(int vk);

// Puts a token in at the caret.
void Text1Insert(const std::string& token);

// UpdateDataFromTextBox: the row takes the text of the box.
void UpdateDataFromTextBox();

// The buttons of a wheel row: a notch away from the user, and one towards the user. Nothing on other rows.
void Command5_Click();
void command3_Click();

// --- the mouse ---

// A click on the character at `position` (the length of the text behind the last one), and whether it fell into the
// right half of its token: the caret goes to the nearer end.
void PlaceCaret(int position, bool rightHalf);

// --- the on-screen keyboard ---

// Text1 takes keys: it is enabled, and seen.
bool TextIsUsable();

// The mouse is over a key, or over none (0). True when another one is to be shown as the one under it.
bool button_MouseMove(int key);

// The real keyboard is heard no longer: none of its keys is shown as pressed.
void LetKeysRest();

// A press of the left button: the key goes down, unless the text holds it already, and up. Where other views are seen,
// a box says what to do; it pumps.
void button_MouseDown(int key);

// A press of the right button: which entries of the key's menu can be chosen. None when there is no menu, for the same
// reason; it pumps likewise.
struct KeyPopup {
    bool press_key = false;
    bool key_down = false;
    bool key_up = false;
};
std::optional<KeyPopup> PopupOf(int key);

// The entries, for the key of the last menu.
void press_key_Click();
void key_down_Click();
void key_up_Click();

// --- the views ---

void Option1_Click();
void Option2_Click();  // types the plain text; pumps
void Option3_Click();
