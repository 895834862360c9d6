#include "editor/keystroke_box.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/keyboard_layout.h"
#include "editor/keystroke_hook.h"
#include "editor/keystroke_view.h"
#include "editor/plain_text.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "keystrokes/notation.h"
#include "keystrokes/parsing.h"
#include "platform/boxes.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "widgets/busy_mark.h"

KeystrokeBox keystrokeBox;

namespace {

constexpr int BackspaceKey = 8;
constexpr int LeftKey = 37;
constexpr int RightKey = 39;
constexpr int DeleteKey = 46;

constexpr const char* WheelTag = "wheel";

int LengthOf(const std::string& text) {
    return static_cast<int>(text.size());
}

bool AtEnd() {
    return keystrokeBox.SelStart == LengthOf(keystrokeBox.text);
}

bool IsWheelRow() {
    return keystrokeBox.Tag == WheelTag;
}

// The four with which a text is edited and which the keyboard can't put into it.
bool Edits(const PressedKey& key) {
    const bool editing = key.virtualKey == BackspaceKey || key.virtualKey == LeftKey || key.virtualKey == RightKey ||
                         key.virtualKey == DeleteKey;
    return editing && !key.forced;
}

// --- boxes ---

// From the next pump, for the focus may be on its way elsewhere just now; and one box for all that come until it is
// closed, for a key that is held repeats itself.
void Tell(const std::string& text, const std::string& title, platform::BoxIcon icon) {
    if (keystrokeBox.tellingOfKey) return;
    platform::CallFromPump([text, title, icon] {
        const BusyMark mark(keystrokeBox.tellingOfKey);
        platform::ShowBox(text, title, icon);
    });
    keystrokeBox.tellingOfKey = true;
}

void TellInvalidKey() {
    Tell("Invalid key pressed!", "Invalid key", platform::BoxIcon::Error);
}

void TellOfOpenRest() {
    Tell(Translate("The end of this text cannot be read: an opening brace is never closed. Remove it first."),
         Translate("Edit Keystrokes"), platform::BoxIcon::Warning);
}

// --- tokens ---

// The number of the token behind the caret; past the last one at the end.
int TokenBehindCaret(const std::vector<TokenSpan>& spans) {
    const auto behind = std::find_if(spans.begin(), spans.end(),
                                     [](const TokenSpan& span) { return span.End() > keystrokeBox.SelStart; });
    return static_cast<int>(behind - spans.begin());
}

void MoveCaretTo(int position) {
    keystrokeBox.SelStart = position;
    keystroke_view::ShowText();
}

void TakeOut(const TokenSpan& span) {
    keystrokeBox.text.erase(static_cast<std::size_t>(span.start), static_cast<std::size_t>(span.length));
    keystrokeBox.SelStart = span.start;
    UpdateDataFromTextBox();
}

// A token behind an open "{" would become a part of what nobody can read.
bool StandsBehindOpenRest() {
    const std::vector<TokenSpan> spans = SpansOf(keystrokeBox.text);
    return AtEnd() && !spans.empty() && IsOpenRest(keystrokeBox.text, spans.back());
}

// The code that a token of this key has: several keys have one name, and a text knows names only.
int CodeInTexts(int vk) {
    const int code = KeyCodeFromName(KeyNameFromCode(vk));
    return code == KeyCodeUnknown ? vk : code;
}

// --- keys ---

void EditWith(int vk) {
    const std::vector<TokenSpan> spans = SpansOf(keystrokeBox.text);
    const auto span = [&](int index) { return spans[static_cast<std::size_t>(index)]; };
    const int behind = TokenBehindCaret(spans);
    const int count = static_cast<int>(spans.size());
    if (vk == LeftKey && behind > 0) MoveCaretTo(span(behind - 1).start);
    if (vk == RightKey && behind < count) MoveCaretTo(span(behind).End());
    if (vk == DeleteKey && behind < count) TakeOut(span(behind));
    if (vk == BackspaceKey && behind > 0) TakeOut(span(behind - 1));
}

// A named key that repeats itself while it is held is down already. Of a character each repeat is one more character.
bool RepeatsItself(const std::string& token, int vk) {
    return token.size() > 1 && IsHeldAtCaret(vk);
}

void PutIn(const std::string& token) {
    if (StandsBehindOpenRest()) return TellOfOpenRest();
    Text1Insert(token);
}

void HandleDown(const PressedKey& key) {
    if (Edits(key)) return EditWith(key.virtualKey);
    if (IsWheelRow()) return;
    if (platform::ScanCodeOf(key.virtualKey) == 0) return TellInvalidKey();
    const std::string token = EventToToken(key.virtualKey, 0);
    if (token.empty()) {
        return Tell("Invalid key pressed. VKcode:" + std::to_string(key.virtualKey), ProductName,
                    platform::BoxIcon::None);
    }
    const bool repeats = RepeatsItself(token, key.virtualKey);
    // The look may have pumped: another row can be shown by now.
    if (!repeats && key.keyRow == keystrokeBox.keyRow) PutIn(token);
}

void HandleUp(const PressedKey& key) {
    if (IsWheelRow() || Edits(key)) return;
    if (platform::ScanCodeOf(key.virtualKey) == 0) return TellInvalidKey();
    const std::string token = EventToToken(key.virtualKey, 2);
    if (!token.empty()) PutIn(token);  // a character has stood for the whole press since it went down
}

// The on-screen keyboard shows which character key of the real one is down.
void ShowOnKeyboard(const PressedKey& key) {
    if (key.forced || key.virtualKey == keystrokeBox.keyUnderMouse) return;
    PromjeniTipku(key.virtualKey, key.up ? KeyAtRest.back : KeyPressedBack);
    keystroke_view::ShowText();
}

// What was pressed for a row that is no longer shown has nowhere to go.
void Handle(const PressedKey& key) {
    if (!keystrokeBox.enabled || key.keyRow != keystrokeBox.keyRow) return;
    ShowOnKeyboard(key);
    key.up ? HandleUp(key) : HandleDown(key);
}

void TakeInTurn(int vk, bool up, bool forced) {
    keystrokeBox.waiting.push_back({vk, up, forced, keystrokeBox.keyRow});
    TakeWaitingKeys();
}

// --- rows ---

// A row that the grid shows as one of the mouse wheel.
bool ShowsAsWheel(const std::string& text) {
    const std::string none;
    return StaviUGrid(none, actionWords.keyboard, actionWords.keystrokes, none, none, none, none, text)[2] ==
           actionWords.wheel;
}

void InsertNotch(const char* token) {
    if (keystrokeBox.wheelButtons) PutIn(token);
}

// --- the on-screen keyboard ---

bool MayInsertByMouse() {
    if (keystrokeBox.view == KeystrokeView::Keystrokes) return keystrokeBox.enabled;
    platform::ShowBox(Translate1("Click on '%1' button to insert keystrokes this way.", Translate("Edit keystrokes")),
                      Translate("Edit keystrokes"), platform::BoxIcon::Information);
    return false;
}

void Press(int key) {
    Text1KEYDOWN(key, true);
    Text1KEyUP(key, true);
}

void Show(KeystrokeView view) {
    TakeWaitingKeys();
    keystrokeBox.view = view;
    edit_view::Refresh();
}

}  // namespace

std::vector<TokenSpan> SpansOf(const std::string& text) {
    std::vector<TokenSpan> spans;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(TokenEnd(text, start), text.size());
        spans.push_back({static_cast<int>(start), static_cast<int>(end - start)});
        start = end;
    }
    return spans;
}

bool IsOpenRest(const std::string& text, const TokenSpan& span) {
    return TokenEnd(text, static_cast<std::size_t>(span.start)) == std::string::npos;
}

int TokenAtCaret(int position) {
    const std::vector<TokenSpan> spans = SpansOf(keystrokeBox.text);
    const auto covering =
        std::find_if(spans.begin(), spans.end(), [&](const TokenSpan& span) { return span.End() > position; });
    const auto index = static_cast<int>(covering - spans.begin());
    return std::min(index, static_cast<int>(spans.size()) - 1);
}

// --- rows ---

void OpenKeystrokes() {
    CloseKeystrokes();
    NacrtajTipkovnicu();
    OpenTextKeyboard();
}

// What is asked of the pump comes back, so it is not forgotten here.
void CloseKeystrokes() {
    CloseTextKeyboard();
    EndPlainText();
    keystrokeBox.waiting.clear();
    KeystrokesEnabled(false);
    keystrokeBox.view = KeystrokeView::Keystrokes;
    keystrokeBox.keyUnderMouse = 0;
}

void ShowKeystrokeRow(std::int32_t keyRow) {
    TakeWaitingKeys();
    std::string text = ReduceKeystrokes(CheckedAt(editState.KeyRows, keyRow, "Keystroke row").Text);
    KeystrokesEnabled(true);
    keystrokeBox.keyRow = keyRow;
    keystrokeBox.text = std::move(text);
    keystrokeBox.SelStart = LengthOf(keystrokeBox.text);
    keystrokeBox.wheelButtons = ShowsAsWheel(keystrokeBox.text);
    keystrokeBox.Tag = keystrokeBox.wheelButtons ? WheelTag : "";
    if (keystrokeBox.view == KeystrokeView::Description) keystrokeBox.view = KeystrokeView::Keystrokes;
    keystroke_view::ShowText();
    if (keystrokeBox.view == KeystrokeView::PlainText) RefillPlainText();
}

void KeystrokesEnabled(bool on) {
    TakeWaitingKeys();
    keystrokeBox.enabled = keystrokeBox.wheelButtons = on;
    if (on) return;
    keystrokeBox.keyRow = -1;
    keystrokeBox.text.clear();
    keystrokeBox.SelStart = 0;
    keystrokeBox.Tag.clear();
    keystroke_view::ClearPlainText();
    keystroke_view::ShowText();
}

// --- keys ---

void Text1KEYDOWN(int vk, bool forced) {
    TakeInTurn(vk, false, forced);
}

void Text1KEyUP(int vk, bool forced) {
    TakeInTurn(vk, true, forced);
}

void NoteKey(int vk, bool up) {
    keystrokeBox.waiting.push_back({vk, up, false, keystrokeBox.keyRow});
    if (keystrokeBox.askedThePump) return;
    platform::CallFromPump([] {
        keystrokeBox.askedThePump = false;
        TakeWaitingKeys();
    });
    keystrokeBox.askedThePump = true;
}

// A handler that comes inside another one leaves its key here for that one: with a single thread, to wait for the end
// of the other would be to wait for ever.
void TakeWaitingKeys() {
    if (keystrokeBox.handling) return;
    const BusyMark mark(keystrokeBox.handling);
    while (!keystrokeBox.waiting.empty()) {
        const PressedKey key = keystrokeBox.waiting.front();
        keystrokeBox.waiting.pop_front();
        Handle(key);
    }
}

bool IsHeldAtCaret(int vk) {
    const int before = TokenBehindCaret(SpansOf(keystrokeBox.text)) - 1;
    return before >= 0 && KeyIsHeld(keystrokeBox.text, before, CodeInTexts(vk));
}

void Text1Insert(const std::string& token) {
    keystrokeBox.text.insert(static_cast<std::size_t>(keystrokeBox.SelStart), token);
    keystrokeBox.SelStart += LengthOf(token);
    UpdateDataFromTextBox();
}

void UpdateDataFromTextBox() {
    if (keystrokeBox.keyRow >= 0) SetKeyText(keystrokeBox.keyRow, keystrokeBox.text);
    keystroke_view::ShowText();
    edit_view::RepaintRows();
    edit_view::Refresh();
}

void Command5_Click() {
    InsertNotch("{WHEEL UP}");
}

void command3_Click() {
    InsertNotch("{WHEEL DOWN}");
}

// --- the mouse ---

void PlaceCaret(int position, bool rightHalf) {
    TakeWaitingKeys();
    const std::vector<TokenSpan> spans = SpansOf(keystrokeBox.text);
    const int token = TokenAtCaret(position);
    if (token < 0 || position >= LengthOf(keystrokeBox.text)) return MoveCaretTo(LengthOf(keystrokeBox.text));
    const TokenSpan& span = spans[static_cast<std::size_t>(token)];
    MoveCaretTo(rightHalf ? span.End() : span.start);
}

// --- the on-screen keyboard ---

bool TextIsUsable() {
    return keystrokeBox.enabled && keystrokeBox.view == KeystrokeView::Keystrokes;
}

bool button_MouseMove(int key) {
    const int shown = TextIsUsable() ? key : 0;
    const int before = std::exchange(keystrokeBox.keyUnderMouse, shown);
    if (before == shown) return false;
    if (before != 0) ColourKey(before, KeyAtRest);
    if (shown != 0) ColourKey(shown, KeyUnderMouse);
    return true;
}

void LetKeysRest() {
    AllKeysAtRest();
    if (keystrokeBox.keyUnderMouse != 0) ColourKey(keystrokeBox.keyUnderMouse, KeyUnderMouse);
    keystroke_view::ShowText();
}

void button_MouseDown(int key) {
    if (!MayInsertByMouse()) return;
    keystroke_view::FocusText();
    TakeWaitingKeys();
    IsHeldAtCaret(key) ? Text1KEyUP(key, true) : Press(key);
}

// A key that is held can only come up.
std::optional<KeyPopup> PopupOf(int key) {
    if (!MayInsertByMouse()) return std::nullopt;
    keystrokeBox.keyOfPopup = key;
    TakeWaitingKeys();
    const bool held = IsHeldAtCaret(key);
    return KeyPopup{!held, !held, held};
}

void press_key_Click() {
    Press(keystrokeBox.keyOfPopup);
}

void key_down_Click() {
    Text1KEYDOWN(keystrokeBox.keyOfPopup, true);
}

void key_up_Click() {
    Text1KEyUP(keystrokeBox.keyOfPopup, true);
}

// --- the views ---

void Option1_Click() {
    Show(KeystrokeView::Keystrokes);
}

void Option2_Click() {
    Show(KeystrokeView::PlainText);
    ShowPlainText();
}

void Option3_Click() {
    Show(KeystrokeView::Description);
}
