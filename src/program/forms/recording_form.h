// recording, the status form of a recording: a small framed window above everything. It keeps out of the way of what it
// observes: the pointer over any part of it but the buttons makes it jump to the other side of the screen, it takes the
// activation only when a button is clicked, and Alt+Tab does not know it, so that the order of the windows is that of a
// replay.
//
// It implements recording_view. The Stop button takes the form down from within, and returns only when the Save As form
// is closed; nothing else pumps.
#pragma once

#include <string>

#include "toolkit/floating_form.h"

class RecordingForm : public FloatingForm {
public:
    RecordingForm();
    void LoadOrFail();  // a memory failure when the form cannot be shown

    // For a form that is not loaded these do nothing.
    void SetCommand1(const std::string& caption) { SetCaptions(caption, command2Caption); }
    void SetCommand2(const std::string& caption) { SetCaptions(command1Caption, caption); }
    void SetLabel(int control, const std::string& text) const;
    void ShowIndicator(bool visible) const;

    void PodesiRjecnik() override;

private:
    static LRESULT CALLBACK ButtonThunk(HWND button, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                        DWORD_PTR) noexcept;
    std::vector<ControlRow> Rows() override;
    void OnInit() override;
    bool OnLoad() override;
    void OnUnload() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnClicked(int id) override;
    RECT FrameArea() const override;

    void SetCaptions(const std::string& stop, const std::string& pause);
    bool OnButtonMessage(HWND button, int id, UINT message);
    void OnMouseMove() const;
    void OnMouseActivate();
    void OnMouseDown(HWND button, int id);
    void OnMouseUp(HWND button, int id);
    void OnKeyPress(int id);
    void OnRelease() const;

    void Draw(const DRAWITEMSTRUCT& item) const;
    void DrawIndicator(const DRAWITEMSTRUCT& item) const;
    void DrawPushButton(const DRAWITEMSTRUCT& item) const;
    void PaintBehind(const DRAWITEMSTRUCT& item) const;

    HWND foregroundBefore = nullptr;  // from which a click took the foreground
    std::string command1Caption;
    std::string command2Caption;
};

extern RecordingForm recording;
