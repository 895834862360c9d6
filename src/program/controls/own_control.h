// A control of the program's own: a window of a class that dialog templates can name, and the object that is attached
// to it. Until then, and after the object has gone, the window is an empty area.
#pragma once

#include <windows.h>

#include <string>

#include "toolkit/accessible.h"

class OwnControl : public AccessibleView {
public:
    OwnControl() = default;
    OwnControl(const OwnControl&) = delete;
    OwnControl& operator=(const OwnControl&) = delete;

    HWND Window() const { return window; }  // nullptr before it is attached and after the window's end

    // What screen readers call it.
    void SetName(const std::string& text);

    // Once more does no harm.
    static void RegisterControlClass(const char* name);

protected:
    ~OwnControl() override;

    void AttachTo(HWND control);

    // Everything but the window's end. What is not handled goes to Default, which keeps the font.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;
    HFONT Font() const;

    std::optional<std::string> NameOf(int part) const override;

    // The window's text; told to screen readers when it is another than before.
    void Say(const std::string& text);

private:
    static LRESULT CALLBACK WindowThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window = nullptr;
    Accessible accessible;
    std::string name;
    std::string said;
};
