#include "widgets/time_picker_model.h"

#include <algorithm>

#include "base/runtime_failure.h"
#include "widgets/busy_mark.h"
#include "widgets/typed_number.h"

namespace {

constexpr std::size_t Digits = 2;
constexpr int LeftArrow = 37;
constexpr int RightArrow = 39;

std::string TwoDigits(const std::string& text) {
    return text.size() < Digits ? std::string(Digits - text.size(), '0') + text : text;
}

// Digits only, as the boxes of a time have neither signs nor blanks.
bool IsInRange(const std::string& text, int limit) {
    const bool digitsOnly = text.find_first_not_of("0123456789") == std::string::npos;
    return digitsOnly && text.size() <= Digits && TypedNumber(text).value_or(0) <= limit;
}

}  // namespace

std::string TimePickerModel::Time() const {
    return TwoDigits(fields[0]) + ":" + TwoDigits(fields[1]) + ":" + TwoDigits(fields[2]);
}

void TimePickerModel::SetTime(const std::string& time) {
    const int before = focus;
    for (focus = 0; focus < FieldCount; ++focus) {
        const std::size_t start = static_cast<std::size_t>(focus) * (Digits + 1);
        const std::string part = start < time.size() ? time.substr(start, Digits) : "";
        Current() = IsInRange(part, Limit()) ? TwoDigits(part) : "00";
    }
    focus = before;
    RaiseChange();
}

const std::string& TimePickerModel::Text(int field) const {
    return CheckedAt(fields, field, "Time field");
}

void TimePickerModel::GotFocus(int field) {
    CheckedAt(fields, field, "Time field");
    focus = field;
    selectsWhole = true;
}

void TimePickerModel::LostFocus(int field) {
    std::string& text = CheckedAt(fields, field, "Time field");
    text = TwoDigits(text);
}

void TimePickerModel::MoveFocus(int field) {
    if (field < 0 || field >= FieldCount) return;
    GotFocus(field);
}

void TimePickerModel::TextChanged(const std::string& typed, bool byBackspace) {
    if (busy) return;
    const bool good = IsInRange(typed, Limit());
    Current() = good ? typed : "00";
    selectsWhole = !good;  // what is typed next takes the place of the zeros
    if (good && typed.size() == Digits && !byBackspace) MoveFocus((focus + 1) % FieldCount);
    if (typed.empty() && byBackspace) MoveFocus(focus - 1);
    RaiseChange();
}

bool TimePickerModel::KeyDown(int virtualKey) {
    if (virtualKey != LeftArrow && virtualKey != RightArrow) return false;
    MoveFocus(virtualKey == LeftArrow ? focus - 1 : focus + 1);
    return true;
}

void TimePickerModel::Step(int steps) {
    const std::int64_t value = TypedNumber(Current()).value_or(0) + steps;
    const std::string newText = TwoDigits(std::to_string(std::clamp<std::int64_t>(value, 0, Limit())));
    selectsWhole = true;
    if (newText == Current()) return;
    Current() = newText;
    RaiseChange();
}

void TimePickerModel::RaiseChange() {
    const BusyMark mark(busy);
    if (Change) Change();
}
