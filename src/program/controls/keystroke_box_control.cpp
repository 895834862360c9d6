#include "controls/keystroke_box_control.h"

#include <oleacc.h>

#include <algorithm>
#include <cstddef>

#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "editor/keystroke_hook.h"
#include "editor/plain_text.h"
#include "toolkit/system_look.h"
#include "toolkit/window_tools.h"

namespace {

constexpr int NameShadePercent = 14;  // of the selection's colour, behind a key that goes by its name
constexpr int BlankPercent = 55;      // of the back's colour, in the dot that stands for a blank
constexpr int LinesPerNotch = 3;

bool IsKeyMessage(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

bool IsSystemKey(UINT message) {
    return message >= WM_SYSKEYDOWN && message <= WM_SYSDEADCHAR;
}

int Pixels(HWND window, int at100) {
    return MulDiv(at100, DpiOf(window), USER_DEFAULT_SCREEN_DPI);
}

int CaretWidth() {
    DWORD width = 1;
    SystemParametersInfoA(SPI_GETCARETWIDTH, 0, &width, 0);
    return static_cast<int>(width);
}

}  // namespace

void RegisterKeystrokeBox() {
    OwnControl::RegisterControlClass("TessarineKeystrokes");
}

bool HasKeyboard(HWND control) {
    if (control == nullptr || GetFocus() != control) return false;
    if (GetForegroundWindow() != GetAncestor(control, GA_ROOT)) return false;
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    constexpr DWORD menus = GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
    return !GetGUIThreadInfo(GetCurrentThreadId(), &info) || (info.flags & menus) == 0;
}

// ALT with other keys opens menus and presses buttons, which what is typed for show must not do.
bool HandOnKey(const MSG& message, HWND text, HWND plainTextBox) {
    if (!IsKeyMessage(message.message)) return false;
    if (message.hwnd == text) return DispatchMessageA(&message), true;
    if (message.hwnd != plainTextBox || !plainText.playingPlainText) return false;
    if (IsSystemKey(message.message)) return true;
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return true;
}

// --- life ---

void KeystrokeBoxControl::Attach(HWND control) {
    AttachTo(control);
    SetWindowLongPtrA(control, GWL_EXSTYLE, GetWindowLongPtrA(control, GWL_EXSTYLE) | WS_EX_CLIENTEDGE);
    SetWindowPos(control, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    Measure();
}

void KeystrokeBoxControl::ShowText() {
    if (Window() == nullptr) return;
    Say(keystrokeBox.text);
    Lay();
    BringCaretIntoView();
}

// --- messages ---

LRESULT KeystrokeBoxControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsKeyMessage(message)) {
        if (message == WM_KEYDOWN || message == WM_SYSKEYDOWN) OnTextKeyMessage();
        return 0;
    }
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | DLGC_WANTCHARS | DLGC_WANTARROWS;
        case WM_HELP:  // the system posts it beside the key, and F1 is a key of the row
            return TRUE;
        case WM_SETFOCUS:
            OnFocus();
            return 0;
        case WM_KILLFOCUS:
            OnLeft();
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            OnPress(PointOf(lParam));
            return 0;
        case WM_MOUSEWHEEL:
            OnWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(wParam));
            return 0;
        default:
            return OnLooks(message, wParam, lParam);
    }
}

LRESULT KeystrokeBoxControl::OnLooks(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETCURSOR && LOWORD(lParam) == HTCLIENT) {
        SetCursor(LoadCursorA(nullptr, MAKEINTRESOURCEA(32513)));  // the bar of a text
        return TRUE;
    }
    const LRESULT result = DefaultWithBorder(message, wParam, lParam);
    switch (message) {
        case WM_SETFONT:
        case WM_DPICHANGED_AFTERPARENT:
            Measure();
            break;
        case WM_SIZE:
            Lay();
            break;
        default:
            break;
    }
    return result;
}

void KeystrokeBoxControl::OnFocus() {
    CreateCaret(Window(), nullptr, CaretWidth(), lineHeight);
    PlaceSystemCaret();
    ShowCaret(Window());
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    OnTextGotFocus();
}

void KeystrokeBoxControl::OnLeft() {
    DestroyCaret();
    RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    OnTextLostFocus();
}

// Behind the end of a line is the right half of its last token, below the last line the end of the text.
void KeystrokeBoxControl::OnPress(POINT point) {
    SetFocus(Window());
    const int line = point.y < margin ? topLine : topLine + (point.y - margin) / lineHeight;
    const auto behind = std::find_if(pieces.begin(), pieces.end(), [&](const Piece& piece) {
        return piece.line > line || (piece.line == line && piece.left + piece.width > point.x);
    });
    if (line >= LineCount() || (behind == pieces.end() && pieces.empty())) {
        return PlaceCaret(static_cast<int>(keystrokeBox.text.size()), true);
    }
    const bool inLine = behind != pieces.end() && behind->line == line;
    const Piece& hit = inLine ? *behind : *(behind - 1);
    PlaceCaret(hit.span.start, !inLine || point.x >= hit.left + hit.width / 2);
}

// --- screen readers ---

std::optional<std::string> KeystrokeBoxControl::ValueOf(int) const {
    return keystrokeBox.text;
}

std::optional<std::string> KeystrokeBoxControl::DescriptionOf(int) const {
    return Translate1("Every key that you press becomes part of the row. %1 leads out of this box.", PauseBreakKey());
}

std::optional<long> KeystrokeBoxControl::RoleOf(int) const {
    return ROLE_SYSTEM_TEXT;
}

// --- lines ---

void KeystrokeBoxControl::Measure() {
    const HDC paper = GetDC(Window());
    const HGDIOBJ before = SelectObject(paper, Font());
    TEXTMETRICA metrics{};
    GetTextMetricsA(paper, &metrics);
    GetCharWidth32A(paper, 0, 255, widths.data());
    SelectObject(paper, before);
    ReleaseDC(Window(), paper);
    margin = Pixels(Window(), 3);
    lineHeight = static_cast<int>(metrics.tmHeight) + Pixels(Window(), 4);
    Lay();
    if (GetFocus() != Window()) return;
    CreateCaret(Window(), nullptr, CaretWidth(), lineHeight);
    PlaceSystemCaret();
    ShowCaret(Window());
}

int KeystrokeBoxControl::WidthOf(const TokenSpan& span) const {
    int width = 0;
    for (int i = span.start; i < span.End(); ++i) {
        width += widths[static_cast<unsigned char>(keystrokeBox.text[static_cast<std::size_t>(i)])];
    }
    return width;
}

// Not longer than a line, for the caret behind it is to be seen.
void KeystrokeBoxControl::BreakLines(int width) {
    const int inside = std::max(width - 2 * margin - CaretWidth(), 1);
    pieces.clear();
    int left = 0;
    int line = 0;
    for (const TokenSpan& span : SpansOf(keystrokeBox.text)) {
        const int needed = std::min(WidthOf(span), inside);
        if (left > 0 && left + needed > inside) {
            left = 0;
            ++line;
        }
        pieces.push_back({span, margin + left, needed, line});
        left += needed;
    }
}

// The bar takes room from the lines, and may be needed only for that: who needs it without the bar has it.
void KeystrokeBoxControl::Lay() {
    const SIZE inside = AreaWithoutScrollBar();
    BreakLines(inside.cx);
    const bool bar = LineCount() > LinesShown();
    if (bar) BreakLines(inside.cx - GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(DpiOf(Window()))));
    UpdateScrollBar(bar);
    PlaceSystemCaret();
    InvalidateRect(Window(), nullptr, FALSE);
}

int KeystrokeBoxControl::LinesShown() const {
    return std::max(1, (static_cast<int>(AreaWithoutScrollBar().cy) - 2 * margin) / lineHeight);
}

void KeystrokeBoxControl::UpdateScrollBar(bool needed) {
    topLine = std::clamp(topLine, 0, std::max(0, LineCount() - LinesShown()));
    SetScrollBar(needed, LineCount(), LinesShown(), topLine);
}

void KeystrokeBoxControl::ScrollTo(int line) {
    topLine = line;
    UpdateScrollBar(HasScrollBar());
    PlaceSystemCaret();
    InvalidateRect(Window(), nullptr, FALSE);
}

void KeystrokeBoxControl::OnScroll(int code) {
    switch (code) {
        case SB_LINEUP:
            return ScrollTo(topLine - 1);
        case SB_LINEDOWN:
            return ScrollTo(topLine + 1);
        case SB_PAGEUP:
            return ScrollTo(topLine - LinesShown());
        case SB_PAGEDOWN:
            return ScrollTo(topLine + LinesShown());
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollTo(ThumbPlace());
        default:
            return;
    }
}

// Some wheels turn in less than notches.
void KeystrokeBoxControl::OnWheel(int delta) {
    wheelRest += delta * LinesPerNotch;
    ScrollTo(topLine - wheelRest / WHEEL_DELTA);
    wheelRest %= WHEEL_DELTA;
}

// --- the caret ---

const KeystrokeBoxControl::Piece* KeystrokeBoxControl::PieceAtCaret() const {
    const auto found = std::lower_bound(pieces.begin(), pieces.end(), keystrokeBox.SelStart,
                                        [](const Piece& piece, int position) { return piece.span.start < position; });
    return found == pieces.end() ? nullptr : &*found;
}

POINT KeystrokeBoxControl::CaretPlace() const {
    if (pieces.empty()) return {margin, margin};
    const Piece* const piece = PieceAtCaret();
    const Piece& last = pieces.back();
    const int line = piece == nullptr ? last.line : piece->line;
    return {piece == nullptr ? last.left + last.width : piece->left, margin + (line - topLine) * lineHeight};
}

void KeystrokeBoxControl::PlaceSystemCaret() const {
    if (GetFocus() != Window()) return;
    const POINT place = CaretPlace();
    SetCaretPos(place.x, place.y);
}

void KeystrokeBoxControl::BringCaretIntoView() {
    const int line = topLine + (static_cast<int>(CaretPlace().y) - margin) / lineHeight;
    if (line < topLine) ScrollTo(line);
    if (line >= topLine + LinesShown()) ScrollTo(line - LinesShown() + 1);
}

// --- looks ---

void KeystrokeBoxControl::OnPaint(HDC paper) const {
    RECT area{};
    GetClientRect(Window(), &area);
    const bool enabled = IsWindowEnabled(Window()) != FALSE;
    Fill(paper, area, GetSysColor(enabled ? COLOR_WINDOW : COLOR_3DFACE));
    const HGDIOBJ before = SelectObject(paper, Font());
    SetBkMode(paper, TRANSPARENT);
    SetTextColor(paper, GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
    const auto first = std::lower_bound(pieces.begin(), pieces.end(), topLine,
                                        [](const Piece& piece, int line) { return piece.line < line; });
    for (auto piece = first; piece != pieces.end(); ++piece) {
        const int top = margin + (piece->line - topLine) * lineHeight;
        if (top >= area.bottom) break;
        PaintPiece(paper, piece->span, {piece->left, top, piece->left + piece->width, top + lineHeight});
    }
    SelectObject(paper, before);
}

// A key that goes by its name stands out from the characters, and a blank is to be seen, as one can be too many.
void KeystrokeBoxControl::PaintPiece(HDC paper, const TokenSpan& span, RECT place) const {
    const char* const text = keystrokeBox.text.data() + span.start;
    const COLORREF back = GetSysColor(COLOR_WINDOW);
    if (span.length == 1 && *text == ' ') {
        const int side = Pixels(Window(), 2);
        const int left = (place.left + place.right - side) / 2;
        const int top = (place.top + place.bottom - side) / 2;
        const COLORREF colour = HighContrast() ? GetTextColor(paper) : Mixed(GetTextColor(paper), back, BlankPercent);
        return Fill(paper, {left, top, left + side, top + side}, colour);
    }
    if (span.length > 1 && !HighContrast() && IsWindowEnabled(Window())) {
        const RECT behind{place.left + 1, place.top + 1, place.right - 1, place.bottom - 1};
        Fill(paper, behind, Mixed(back, GetSysColor(COLOR_HIGHLIGHT), NameShadePercent));
    }
    DrawTextA(paper, text, span.length, &place, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}
