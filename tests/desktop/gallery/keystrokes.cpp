// A dialog with what keystrokes are edited with, over the real logic and a job of a few rows, for the desktop tests. A
// label tells how it stands, as JSON. The words of the command line: a number sets the language, "contrast" a few
// strong colours.

#include <windows.h>

#include <commctrl.h>

#include <cstdlib>

#include "controls/keystroke_box_control.h"
#include "controls/onscreen_keyboard.h"
#include "dictionary/dictionary.h"
#include "editor/edit_view.h"
#include "editor/job_changes.h"
#include "editor/keystroke_hook.h"
#include "editor/keystroke_view.h"
#include "editor/plain_text.h"
#include "folding/popuni_listu.h"
#include "guard/guard_process.h"
#include "keystrokes_ids.h"
#include "replay/run_job.h"
#include "replay/status_view.h"
#include "settings/settings_view.h"
#include "toolkit/window_tools.h"
#include "win32/message_loop.h"

namespace {

constexpr UINT_PTR StateTimer = 1;
constexpr UINT_PTR PlainTextId = 1;
constexpr UINT StatePauseMs = 50;
constexpr const char* LastRow = "(a click)";

struct Gallery {
    HWND window = nullptr;
    KeystrokeBoxControl text;
    OnscreenKeyboardControl keyboard;
    std::string state;
};
Gallery gallery;

HWND Control(int id) {
    return GetDlgItem(gallery.window, id);
}

const std::vector<std::string>& RowTexts() {
    static const std::vector<std::string> texts = {"Hello {L_SHIFT DOWN}w{L_SHIFT UP}orld{ENTER}",
                                                   "{WHEEL UP}{WHEEL UP}", [] {
                                                       std::string text;
                                                       for (int i = 0; i < 25; ++i) text += "{F5}some text {ENTER}";
                                                       return text;
                                                   }()};
    return texts;
}

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"' || character == '\\') quoted += '\\';
        quoted += character;
    }
    return quoted + "\"";
}

std::string State() {
    std::string marked = keystrokeBox.text;
    marked.insert(static_cast<std::size_t>(keystrokeBox.SelStart), "|");
    const int row = keystrokeBox.keyRow;
    const std::string rowText = row < 0 ? "" : editState.KeyRows[static_cast<std::size_t>(row)].Text;
    return "{\"text\":" + Quoted(marked) + ",\"row\":" + Quoted(rowText) +
           ",\"hooked\":" + (TextKeyboardIsHooked() ? "true" : "false") +
           ",\"playing\":" + (plainText.playingPlainText ? "true" : "false") +
           ",\"hot\":" + std::to_string(keystrokeBox.keyUnderMouse) +
           ",\"view\":" + std::to_string(static_cast<int>(keystrokeBox.view) + 1) + "}";
}

void ShowState() {
    const std::string state = State();
    if (state == gallery.state) return;
    gallery.state = state;
    SetText(gallery.window, keystrokes_state, state);
}

void SelectRow() {
    const auto row =
        static_cast<std::int32_t>(SendDlgItemMessageA(gallery.window, keystrokes_rows, LB_GETCURSEL, 0, 0));
    row < static_cast<std::int32_t>(editState.KeyRows.size()) ? ShowKeystrokeRow(row) : KeystrokesEnabled(false);
    edit_view::Refresh();
}

LRESULT CALLBACK PlainTextThunk(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) noexcept {
    const bool taken = message != WM_CHAR || Guarded<bool>(false, [] { return plain_text_KeyPress(); });
    return taken ? DefSubclassProc(box, message, wParam, lParam) : 0;
}

void OnInitDialog(HWND window) {
    gallery.window = window;
    for (const std::string& text : RowTexts()) {
        KeyRow row;
        row.Text = text;
        editState.KeyRows.push_back(row);
        SendDlgItemMessageA(window, keystrokes_rows, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendDlgItemMessageA(window, keystrokes_rows, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(LastRow));
    SendDlgItemMessageA(window, keystrokes_rows, LB_SETCURSEL, 0, 0);
    gallery.text.Attach(Control(keystrokes_Text1));
    gallery.text.SetName("Keystrokes");
    gallery.keyboard.Attach(Control(keystrokes_keyboard));
    gallery.keyboard.SetName(Translate("On-screen keyboard"));
    SetWindowSubclass(Control(keystrokes_plain_text), PlainTextThunk, PlainTextId, 0);
    OpenKeystrokes();
    SelectRow();
    SetTimer(window, StateTimer, StatePauseMs, nullptr);
}

void OnCommand(int control, int code) {
    if (control == keystrokes_rows && code == LBN_SELCHANGE) SelectRow();
    if (code != BN_CLICKED) return;
    if (control == keystrokes_Option1) Option1_Click();
    if (control == keystrokes_Option2) Option2_Click();
    if (control == keystrokes_Option3) Option3_Click();
    if (control == keystrokes_Command5) Command5_Click();
    if (control == keystrokes_command3) command3_Click();
    if (control == IDCANCEL) PostQuitMessage(0);
}

INT_PTR CALLBACK Dialog(HWND window, UINT message, WPARAM wParam, LPARAM) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) OnInitDialog(window);
        if (message == WM_COMMAND) OnCommand(LOWORD(wParam), HIWORD(wParam));
        if (message == WM_TIMER) ShowState();
        if (message == WM_DESTROY) CloseKeystrokes();
        return message == WM_INITDIALOG;
    });
}

bool OnKey(const MSG& message) {
    return HandOnKey(message, Control(keystrokes_Text1), Control(keystrokes_plain_text));
}

}  // namespace

// --- what the logic asks of the editor ---

void SetKeyText(std::int32_t keyRow, const std::string& text) {
    editState.KeyRows[static_cast<std::size_t>(keyRow)].Text = text;
}

namespace edit_view {

void RepaintRows() {}

void Refresh() {
    SetTick(gallery.window, keystrokes_Option1, keystrokeBox.view == KeystrokeView::Keystrokes);
    SetTick(gallery.window, keystrokes_Option2, keystrokeBox.view == KeystrokeView::PlainText);
    SetTick(gallery.window, keystrokes_Option3, keystrokeBox.view == KeystrokeView::Description);
    ShowWindow(Control(keystrokes_Text1), keystrokeBox.view == KeystrokeView::Keystrokes ? SW_SHOW : SW_HIDE);
    ShowWindow(Control(keystrokes_plain_text), keystrokeBox.view == KeystrokeView::PlainText ? SW_SHOW : SW_HIDE);
    ShowWindow(Control(keystrokes_job_description),
               keystrokeBox.view == KeystrokeView::Description ? SW_SHOW : SW_HIDE);
    for (const int id : {keystrokes_Text1, keystrokes_plain_text, keystrokes_Option1, keystrokes_Option2}) {
        EnableWindow(Control(id), keystrokeBox.enabled);
    }
    for (const int id : {keystrokes_Command5, keystrokes_command3})
        EnableWindow(Control(id), keystrokeBox.wheelButtons);
}

}  // namespace edit_view

namespace keystroke_view {

void ShowText() {
    gallery.text.ShowText();
    gallery.keyboard.ShowText();
}

void FocusText() {
    SetFocus(Control(keystrokes_Text1));
}

bool TextHasKeyboard() {
    return HasKeyboard(Control(keystrokes_Text1));
}

void LeaveText() {
    SendMessageA(gallery.window, WM_NEXTDLGCTL, 0, FALSE);
}

void ClearPlainText() {
    SetText(gallery.window, keystrokes_plain_text, "");
}

void FocusPlainText() {
    SetFocus(Control(keystrokes_plain_text));
}

bool PlainTextHasKeyboard() {
    return HasKeyboard(Control(keystrokes_plain_text));
}

void AppendPlainText(const std::string& text) {
    SendDlgItemMessageA(gallery.window, keystrokes_plain_text, EM_SETSEL, WPARAM{0x7FFFFFFF}, 0x7FFFFFFF);
    SendDlgItemMessageA(gallery.window, keystrokes_plain_text, EM_REPLACESEL, FALSE,
                        reinterpret_cast<LPARAM>(text.c_str()));
}

void FocusGrid() {
    SetFocus(Control(keystrokes_rows));
}

}  // namespace keystroke_view

namespace status_view {

int BarMaximum() {
    return 0;
}

int BarValue() {
    return 0;
}

void SetBar(int) {}

}  // namespace status_view

void CopyControlsToSettings() {}

RunState runState;  // nothing runs here

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR words, int) {
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    if (const int language = std::atoi(words); language != 0) SetLanguage(language);
    RegisterKeystrokeBox();
    RegisterOnscreenKeyboard();
    const HWND window = CreateDialogParamA(ProgramInstance(), MAKEINTRESOURCEA(keystrokes_dialog), nullptr, Dialog, 0);
    platform::AddModelessForm(window, OnKey);
    const int result = platform::RunMessageLoop();
    DestroyWindow(window);
    return result;
}
