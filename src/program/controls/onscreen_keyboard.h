// The window of the on-screen keyboard (editor/keyboard_layout.h): class "TessarineKeyboard", for dialog templates too.
// One painted control that fills its area with the board. A press of the left button presses a key of the row that is
// edited, the right button opens the key's menu; a key that the text holds at the caret has a thick frame. To screen
// readers each key is a button.
#pragma once

#include "controls/painted_control.h"
#include "editor/keyboard_layout.h"

// Before the first dialog that names the class; more than once does no harm.
void RegisterOnscreenKeyboard();

class OnscreenKeyboardControl : public PaintedControl {
public:
    ~OnscreenKeyboardControl();

    void Attach(HWND control);

    // PodesiRjecnik ("set up the dictionary"): the board with the names of the language in force.
    void PodesiRjecnik();

    // The text, its caret, or what may be done with it has changed.
    void ShowText();

private:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    int PartCount() const override;
    std::optional<std::string> NameOf(int part) const override;
    std::optional<long> RoleOf(int part) const override;
    std::optional<long> StateOf(int part) const override;
    RECT PlaceOf(int part) const override;
    int PartAt(POINT place) const override;
    std::optional<std::string> ActionOf(int part) const override;
    bool DoAction(int part) override;

    void OnMouseMove(POINT point);
    void OnRightPress(POINT point);
    void ShowHot(int key);
    platform::Point OnBoard(POINT point) const;
    RECT Scaled(const platform::Rect& place) const;

    void MakeFonts();
    void FreeFonts();
    void OnPaint(HDC paper) const override;
    void PaintKey(HDC paper, const KeyPart& part) const;
    void PaintCaption(HDC paper, const KeyPart& part) const;
    bool IsHeld(const KeyPart& part) const;

    HFONT characterFont = nullptr;
    HFONT nameFont = nullptr;
    HFONT smallFont = nullptr;
    KeysDown held{};
};
