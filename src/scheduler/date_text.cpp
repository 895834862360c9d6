#include "scheduler/date_text.h"

namespace {

std::string Digits(int value, std::size_t width) {
    std::string text = std::to_string(value);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

}  // namespace

std::string DateText(const platform::LocalTime& moment) {
    return Digits(moment.year, 4) + "-" + Digits(moment.month, 2) + "-" + Digits(moment.day, 2);
}

std::string TimeText(const platform::LocalTime& moment) {
    return Digits(moment.hour, 2) + ":" + Digits(moment.minute, 2) + ":" + Digits(moment.second, 2);
}

std::string StampText(const platform::LocalTime& moment) {
    return DateText(moment) + "@" + TimeText(moment);
}

std::string TodayText() {
    return DateText(platform::LocalNow());
}

std::string NowText() {
    return TimeText(platform::LocalNow());
}

std::string NowStamp() {
    return StampText(platform::LocalNow());
}
