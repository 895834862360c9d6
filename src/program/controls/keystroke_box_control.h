// The window of Text1 (editor/keystroke_box.h): class "TessarineKeystrokes", for dialog templates too. It shows the
// notation in lines that break between tokens, with a caret, and takes all keys: what they do is the keyboard hook's
// affair, so here nothing comes of them. The window's text is that of the box.
#pragma once

#include <array>
#include <vector>

#include "controls/painted_control.h"
#include "editor/keystroke_box.h"

// Before the first dialog that names the class; more than once does no harm.
void RegisterKeystrokeBox();

// What the user types goes to this window and nowhere else: it has the focus, in the window in the foreground, and no
// menu is open.
bool HasKeyboard(HWND control);

// For the OnKey of the form, before anything else. A key on its way to Text1, or to plain_text while that is being
// typed, is handed over as it is, and neither dialog nor menu nor accelerator hears of it: true.
bool HandOnKey(const MSG& message, HWND text, HWND plainText);

class KeystrokeBoxControl : public PaintedControl {
public:
    void Attach(HWND control);

    // Text and caret are as keystrokeBox has them now.
    void ShowText();

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT OnLooks(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<std::string> ValueOf(int part) const override;
    std::optional<std::string> DescriptionOf(int part) const override;
    std::optional<long> RoleOf(int part) const override;

    void OnFocus();
    void OnLeft();
    void OnPress(POINT point);
    void OnScroll(int code);
    void OnWheel(int delta);
    void OnPaint(HDC paper) const override;
    void PaintPiece(HDC paper, const TokenSpan& span, RECT place) const;

    // A token where it stands, in pixels from the first line on.
    struct Piece {
        TokenSpan span;
        int left = 0;
        int width = 0;
        int line = 0;
    };
    void Measure();
    void Lay();
    void BreakLines(int width);
    int WidthOf(const TokenSpan& span) const;
    int LineCount() const { return pieces.empty() ? 1 : pieces.back().line + 1; }
    int LinesShown() const;
    const Piece* PieceAtCaret() const;
    POINT CaretPlace() const;
    void PlaceSystemCaret() const;
    void BringCaretIntoView();
    void ScrollTo(int line);
    void UpdateScrollBar(bool needed);

    std::vector<Piece> pieces;
    std::array<int, 256> widths{};  // of the characters
    int lineHeight = 1;
    int margin = 0;
    int topLine = 0;
    int wheelRest = 0;  // turned, and not yet scrolled
};
