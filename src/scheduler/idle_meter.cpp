#include "scheduler/idle_meter.h"

namespace {

constexpr int LeastIdle = 45;
constexpr std::size_t MostSamples = 30;
constexpr int SettledAbove = 2600;

}  // namespace

bool IdleMeter::Add(int idle_now) {
    if (idle_now < LeastIdle) {
        *this = {};
        return false;
    }
    if (idle_samples.size() == MostSamples) {
        idle_sum -= idle_samples.front();
        idle_samples.pop_front();
    }
    idle_samples.push_back(idle_now);
    idle_sum += idle_now;
    return idle_sum > SettledAbove;
}
