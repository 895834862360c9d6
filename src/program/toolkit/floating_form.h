// A small window that floats over the desktop, above everything, without a title: a frame with round corners, or
// nothing but its texts. It is shown without being activated, so that whoever works goes on working.
#pragma once

#include <windows.h>

#include "toolkit/form.h"
#include "toolkit/frame.h"

class FloatingForm : public Form {
public:
    void Load();    // not visible yet; nothing when it is loaded, or when the system refuses
    void Show();    // loads it too
    void Unload();  // nothing when it is not loaded; from within its own handlers too

    // 255: nothing shines through, 0: nothing is seen. Until it is loaded anew.
    void SetAlpha(BYTE opaque) const;

protected:
    // `opaque`: 255, or less for what lets shine through what is below.
    FloatingForm(int dialogTemplate, const char* windowClass, BYTE opaque)
        : Form(dialogTemplate), className(windowClass), alpha(opaque) {}

    void OnInit() override;
    void OnLooks() override;
    void OnUnload() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    std::optional<COLORREF> BackColour() const override { return FormFrame::BodyColour(); }

    virtual RECT FrameArea() const;  // all of it; what lies around is not there
    void PaintBackground(HDC paper) const;

private:
    const char* const className;
    const BYTE alpha;
    FormFrame frame;
};
