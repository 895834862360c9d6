// recording, the status form of a recording: a small framed window above everything. It keeps out of the way of what it
// observes: the pointer over any part of it but the buttons makes it jump to the other side of the screen, it takes the
// activation only when a button is clicked, and Alt+Tab does not know it, so that the order of the windows is that of a
// replay.
//
// It implements recording_view. The Stop button takes the form down from within, and returns only when the Save As form
// is closed; nothing else pumps.
#pragma once

#include <windows.h>

#include <string>

#include "toolkit/frame.h"

class RecordingForm {
public:
    void Load();  // not visible yet; nothing when it is loaded
    void Show();
    void Unload();

    // For a form that is not loaded these do nothing.
    void SetCaptions(const std::string& stop, const std::string& pause);
    void SetLabel(int control, const std::string& text) const;
    void ShowIndicator(bool visible) const;

    void SetCommand1(const std::string& caption) { SetCaptions(caption, command2Caption); }
    void SetCommand2(const std::string& caption) { SetCaptions(command1Caption, caption); }

private:
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK ButtonThunk(HWND button, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnButtonMessage(HWND button, int id, UINT message);

    void OnInitDialog(HWND form);
    void PodesiRjecnik();
    void OnMouseMove() const;
    void OnMouseActivate();
    void OnMouseDown(HWND button, int id);
    void OnMouseUp(HWND button, int id);
    void OnKeyPress(int id);
    void OnRelease() const;

    void OnDpiChanged();
    void SetLooks();
    void FreeLooks();
    RECT FrameArea() const;
    void PaintBackground(HDC paper) const;
    void DrawIndicator(const DRAWITEMSTRUCT& item) const;
    void DrawButton(const DRAWITEMSTRUCT& item) const;
    void PaintBehind(const DRAWITEMSTRUCT& item) const;
    HBRUSH BrushOf(HDC paper, HWND label) const;

    HWND window = nullptr;
    HWND foregroundBefore = nullptr;  // from which a click took the foreground
    FormFrame frame;
    HFONT labelFont = nullptr;
    std::string command1Caption;
    std::string command2Caption;
};

extern RecordingForm recording;
