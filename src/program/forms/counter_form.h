// counter, the countdown before a recording: a caption and a large number, and nothing around them. It floats over the
// desktop, and what is clicked on it goes to what is below. It implements counter_view; nothing here pumps.
#pragma once

#include <windows.h>

class CounterForm {
public:
    void Load();  // not visible yet; nothing when it is loaded
    void Show();
    void Unload();
    HWND Window() const { return window; }

    void SetDigitsBlack(bool black);
    void ShowNumber(int number) const;

private:
    static INT_PTR CALLBACK DialogThunk(HWND form, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnDialogMessage(UINT message, WPARAM wParam);
    void OnInitDialog(HWND form);
    void PodesiRjecnik();
    HBRUSH BrushOf(HDC paper) const;

    HWND window = nullptr;
    HBRUSH nothing = nullptr;
    HFONT captionFont = nullptr;
    HFONT numberFont = nullptr;
    bool digitsBlack = false;
};

extern CounterForm counter;
