#include "recording/countdown.h"

#include "platform/clock.h"
#include "platform/pump.h"
#include "recording/counter_view.h"
#include "settings/settings.h"

namespace {

constexpr std::int32_t SampleStep = 5;  // pixels, in both directions
constexpr int SecondMs = 1000;
constexpr std::uint32_t Unreadable = 0xFFFFFFFF;
constexpr double MiddleGrey = 128;

std::vector<platform::Point> SamplesOf(const platform::Rect& area) {
    std::vector<platform::Point> points;
    for (std::int32_t y = area.top; y < area.bottom; y += SampleStep) {
        for (std::int32_t x = area.left; x < area.right; x += SampleStep) points.push_back({x, y});
    }
    return points;
}

std::uint32_t ChannelSum(std::uint32_t colour) {
    return (colour & 0xFF) + (colour >> 8 & 0xFF) + (colour >> 16 & 0xFF);
}

}  // namespace

bool IsLight(const std::vector<std::uint32_t>& colours) {
    std::uint64_t sum = 0;
    std::uint64_t channels = 0;
    for (const std::uint32_t colour : colours) {
        if (colour == Unreadable) continue;
        sum += ChannelSum(colour);
        channels += 3;
    }
    return channels > 0 && static_cast<double>(sum) / static_cast<double>(channels) >= MiddleGrey;
}

void ProvjeriBoju() {
    counter_view::SetDigitsBlack(IsLight(counter_view::ReadScreen(SamplesOf(counter_view::Rectangle()))));
}

void CountDown() {
    ProvjeriBoju();  // before the form covers what it stands on
    counter_view::Show();
    platform::Pump();
    for (int n = settings.countdown_period; n >= 1; --n) {
        counter_view::ShowNumber(n);
        platform::Sleep(SecondMs);
    }
    counter_view::Unload();
}
