// number_picker: a box for a number with a pair of arrow buttons, shown from a NumberPickerModel. A window of the class
// "TessarineNumberPicker" is an edit control under another name, to its label, its dialog and screen readers as well.
// Out of range becomes the nearest number in range while it is typed, without a word.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

#include "widgets/number_picker_model.h"

// Before the first dialog that names the class; more than once does no harm.
void RegisterNumberPicker();

class NumberPicker {
public:
    NumberPicker(std::int32_t lowest, std::int32_t highest);
    ~NumberPicker();
    NumberPicker(const NumberPicker&) = delete;
    NumberPicker& operator=(const NumberPicker&) = delete;

    void Attach(HWND control);  // of the class above, or any other one-line edit control
    HWND Window() const { return window; }

    // Also before it is attached, and after the window's end.
    std::int32_t Value() const { return model.Value(); }
    void SetValue(std::int32_t value);  // the nearest in range; raises Change
    bool Empty() const { return model.Text().empty(); }

    std::function<void()> Change;  // the box shows the new number already

    void SetName(const std::string& text);  // what screen readers call it; after it is attached

    void Enable(bool enable);
    void StaviFocus();  // ("set the focus") the whole text is selected

private:
    static LRESULT CALLBACK EditThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR picker) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void After(UINT message);
    void OnDestroy();
    bool OnKey(WPARAM key);
    bool Takes(WPARAM character) const;
    bool OnArrows(LPARAM notification);
    void Step(int steps);
    void PlaceArrows() const;
    void ReadBox();
    void Show();

    HWND window = nullptr;
    HWND arrows = nullptr;
    NumberPickerModel model;
    bool showing = false;  // the box changes because the model did
};
