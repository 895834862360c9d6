// number_picker: a text box beside a pair of arrow buttons that keeps a number in range while it is typed, without a
// word. The control hands in every change of the text and shows what stands here afterwards.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

class NumberPickerModel {
public:
    std::function<void()> Change;  // raised last

    NumberPickerModel(std::int32_t lowest, std::int32_t highest) : Min(lowest), max(highest) { SetValue(lowest); }

    const std::int32_t Min;
    const std::int32_t max;

    std::int32_t Value() const;  // an empty box has none and counts as 0
    void SetValue(std::int32_t value);
    const std::string& Text() const { return text; }
    int SelStart = 0;
    int SelLength = 0;

    // The user has changed the text; `caret` stands where the typing left it. Out of range becomes the nearest number
    // in range, and what is no number counts as 0. An empty box stays empty where 0 is in range.
    void TextChanged(const std::string& typed, int caret);

    // An arrow was pressed: +1 or -1, up to the limits. The caret keeps its distance from the end.
    void Step(int steps);

private:
    void Put(const std::string& newText, int caret);
    void RaiseChange();

    std::string text;
    bool busy = false;  // showing a corrected text comes back as a change
};
