// What screen readers are told of a control: its answer to WM_GETOBJECT, as Microsoft Active Accessibility has it. The
// control says what it shows (AccessibleView), in texts of the system code page; the rest is the system's own answer
// for a window. Works on the thread of the control; nothing here pumps.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// Part 0 is the control itself, its parts count from 1. What is not known here is what the system says of the window.
class AccessibleView {
public:
    virtual ~AccessibleView() = default;

    virtual int PartCount() const { return 0; }
    virtual std::optional<std::string> NameOf(int) const { return std::nullopt; }
    virtual std::optional<std::string> ValueOf(int) const { return std::nullopt; }
    virtual std::optional<std::string> DescriptionOf(int) const { return std::nullopt; }
    virtual std::optional<long> RoleOf(int) const { return std::nullopt; }   // ROLE_SYSTEM_...
    virtual std::optional<long> StateOf(int) const { return std::nullopt; }  // STATE_SYSTEM_...
    virtual RECT PlaceOf(int) const { return {}; }                           // of a part, in screen pixels
    virtual int PartAt(POINT) const { return 0; }                            // likewise
    virtual int SelectedPart() const { return 0; }                           // 0: none
    virtual bool Select(int) { return false; }

    // The default action: what it is called, and to do it. It may pump.
    virtual std::optional<std::string> ActionOf(int) const { return std::nullopt; }
    virtual bool DoAction(int) { return false; }
};

// Part of a control that answers; ends with it. A screen reader that still holds on to the answer is told then that the
// control is gone.
class Accessible {
public:
    Accessible() = default;
    ~Accessible() { Detach(); }
    Accessible(const Accessible&) = delete;
    Accessible& operator=(const Accessible&) = delete;

    void Attach(HWND window, AccessibleView& shown);
    void Detach();

    // What to return for a WM_GETOBJECT; none when the default procedure is to answer.
    std::optional<LRESULT> Answer(WPARAM wParam, LPARAM lParam);

private:
    class Object;
    HWND control = nullptr;
    AccessibleView* view = nullptr;
    Object* object = nullptr;
};
