#include "support/keystroke_view_stand_in.h"

#include "editor/keystroke_hook.h"
#include "editor/keystroke_view.h"
#include "platform/hooks.h"
#include "simulated/desktop.h"
#include "support/recorder.h"

KeystrokeViewStandIn keystrokeViewStandIn;

namespace {

KeystrokeViewStandIn& view = keystrokeViewStandIn;

bool HasKeyboard(platform::WindowHandle window) {
    return window != 0 && simulated::FocusedWindow() == window && !view.menuIsOpen;
}

}  // namespace

void KeystrokeViewStandIn::AddWindows() {
    form = simulated::AddWindow({.caption = "Job Editor", .thread = simulated::OwnThread});
    grid = simulated::AddWindow({.className = "SysListView32", .parent = form});
    text = simulated::AddWindow({.className = "TessarineKeystrokes", .parent = form});
    plainText = simulated::AddWindow({.className = "Edit", .parent = form});
    simulated::SetFocus(grid);
}

void KeystrokeViewStandIn::Focus(platform::WindowHandle window) {
    const bool hadKeyboard = simulated::FocusedWindow() == text;
    simulated::SetFocus(window);
    if (hadKeyboard && window != text) OnTextLostFocus();
    if (!hadKeyboard && window == text) OnTextGotFocus();
}

void KeystrokeViewStandIn::FocusWithoutEvent(platform::WindowHandle window) {
    simulated::SetFocus(window);
}

namespace keystroke_view {

NOTES(view.calls, LeaveText)

void ShowText() {
    if (platform::InHookCall()) view.calls.emplace_back("ShowText in a hook call");
}

void FocusText() {
    if (view.text != 0) view.Focus(view.text);
}

ANSWERS(bool, TextHasKeyboard, HasKeyboard(view.text))

void ClearPlainText() {
    simulated::SetText(view.plainText, "");
}

void FocusPlainText() {
    if (view.plainText != 0) view.Focus(view.plainText);
}

ANSWERS(bool, PlainTextHasKeyboard, HasKeyboard(view.plainText))

void AppendPlainText(const std::string& text) {
    simulated::SetText(view.plainText, simulated::TextOf(view.plainText) + text);
}

void FocusGrid() {
    view.calls.emplace_back("FocusGrid");
    if (view.grid != 0) view.Focus(view.grid);
}

}  // namespace keystroke_view
