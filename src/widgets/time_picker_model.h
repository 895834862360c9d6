// time_picker: three boxes for hours, minutes and seconds and a pair of arrow buttons that serve the box with the
// focus. What is out of range becomes "00" as it is typed, and the focus wanders on by itself. The control hands in
// what the user does and then shows texts, focus and selection as they stand here.
#pragma once

#include <array>
#include <functional>
#include <string>

class TimePickerModel {
public:
    static constexpr int FieldCount = 3;

    std::function<void()> Change;  // raised last

    // Time text, hh:mm:ss. A field that is not complete counts with a zero in front; short texts set what they hold.
    std::string Time() const;
    void SetTime(const std::string& time);

    const std::string& Text(int field) const;
    int Focus() const { return focus; }
    bool SelectsWhole() const { return selectsWhole; }  // the box with the focus

    void GotFocus(int field);
    void LostFocus(int field);  // a box that is not complete gets its zero

    // The text of the box with the focus was changed, by a backspace or otherwise.
    void TextChanged(const std::string& typed, bool byBackspace);

    // Left and right arrow change the box, without a wrap; false for every other key, which is the owner's.
    bool KeyDown(int virtualKey);

    // An arrow button: +1 or -1, within the box's limits.
    void Step(int steps);

private:
    std::string& Current() { return fields[static_cast<std::size_t>(focus)]; }
    int Limit() const { return focus == 0 ? 23 : 59; }
    void MoveFocus(int field);
    void RaiseChange();

    std::array<std::string, FieldCount> fields = {"00", "00", "00"};
    int focus = 0;
    bool selectsWhole = false;
    bool busy = false;  // showing a corrected text comes back as a change
};
