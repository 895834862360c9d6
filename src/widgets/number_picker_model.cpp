#include "widgets/number_picker_model.h"

#include <algorithm>

#include "widgets/busy_mark.h"
#include "widgets/typed_number.h"

std::int32_t NumberPickerModel::Value() const {
    return static_cast<std::int32_t>(TypedNumber(text).value_or(0));
}

void NumberPickerModel::SetValue(std::int32_t value) {
    const std::string newText = std::to_string(std::clamp(value, Min, max));
    TextChanged(newText, static_cast<int>(newText.size()));
}

void NumberPickerModel::Put(const std::string& newText, int caret) {
    text = newText;
    SelStart = std::clamp(caret, 0, static_cast<int>(text.size()));
    SelLength = 0;
}

void NumberPickerModel::TextChanged(const std::string& typed, int caret) {
    if (busy) return;
    const std::int64_t number = TypedNumber(typed).value_or(0);
    const std::int64_t inRange = std::clamp<std::int64_t>(number, Min, max);
    // The sign of a number that is still to be typed.
    const bool canStay = typed.empty() || (typed == "-" && Min < 0) || TypedNumber(typed);
    if (canStay && inRange == number) {
        Put(typed, caret);
    } else {
        const std::string corrected = std::to_string(inRange);
        Put(corrected, static_cast<int>(corrected.size()));
    }
    RaiseChange();
}

void NumberPickerModel::Step(int steps) {
    const std::int64_t value = std::clamp<std::int64_t>(std::int64_t{Value()} + steps, Min, max);
    const std::string newText = std::to_string(value);
    if (newText == text) return;
    const int fromEnd = static_cast<int>(text.size()) - SelStart;
    Put(newText, static_cast<int>(newText.size()) - fromEnd);
    RaiseChange();
}

void NumberPickerModel::RaiseChange() {
    const BusyMark mark(busy);
    if (Change) Change();
}
