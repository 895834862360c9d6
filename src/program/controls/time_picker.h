// time_picker: boxes for hours, minutes and seconds and a pair of arrow buttons that serve the box with the focus,
// shown from a TimePickerModel. The class "TessarineTimePicker" is for dialog templates: Tab, a label's mnemonic and
// SetFocus lead into the box that was used last. The window's own text is the time.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "controls/own_control.h"
#include "widgets/time_picker_model.h"

// Before the first dialog that names the class; more than once does no harm.
void RegisterTimePicker();

class TimePicker : public OwnControl {
public:
    TimePicker();
    ~TimePicker();

    void Attach(HWND control);

    // hh:mm:ss; also before it is attached, and after the window's end.
    std::string Time() const { return model.Time(); }
    void SetTime(const std::string& time);  // raises Change

    std::function<void()> Change;  // the boxes show the new time already

    void Enable(bool enable);
    void StaviFocus();  // ("set the focus")

private:
    static LRESULT CALLBACK EditThunk(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR field,
                                      DWORD_PTR picker) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<long> RoleOf(int part) const override;
    std::optional<std::string> ValueOf(int part) const override;
    LRESULT OnFieldMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnCharacter(HWND edit, WPARAM character, LPARAM lParam);
    bool OnKey(WPARAM key);
    void OnCommand(int field, int code);
    void OnFieldFocus(int field);
    void OnFieldLeft(int field);
    bool OnArrows(LPARAM notification);
    void OnPaint() const;
    void OnDestroy();

    HWND MakeField(int field);
    HWND CurrentField() const { return edits[static_cast<std::size_t>(model.Focus())]; }
    void FontToFields(HFONT font) const;
    void Lay() const;
    bool HasFocus() const { return IsChild(Window(), GetFocus()); }
    void EnableParts(bool enable) const;
    void ReadField(int field);
    void Show();
    void ShowTexts();
    void ShowFocus();

    TimePickerModel model;
    std::array<HWND, TimePickerModel::FieldCount> edits{};
    HWND arrows = nullptr;
    bool byBackspace = false;  // the key that is at work
    bool showing = false;      // the boxes change because the model did
};
