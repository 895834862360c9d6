// Clock, happenings, timers and the pump.
#include "simulated/agenda.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <exception>
#include <map>
#include <string>
#include <utility>

#include "base/product.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/hooks.h"
#include "platform/pump.h"
#include "platform/timers.h"
#include "simulated/desktop.h"

namespace simulated {

namespace {

struct Happening {
    std::int64_t interval = 0;  // 0: once
    std::function<void()> action;
};

// Ordered by moment; what was arranged first goes first. The id stays the same over all turns of a periodic one.
using Agenda = std::map<std::pair<std::int64_t, HappeningId>, Happening>;

struct ClockState {
    std::int64_t now = 0;
    Agenda own;        // run by the pump
    Agenda meanwhile;  // run by the clock
    std::deque<std::function<void()>> sent;
    std::deque<std::function<void()>> posted;
    int hookCalls = 0;  // under way, one inside the other
    HappeningId lastId = 0;
    bool refusesTimers = false;
    std::chrono::local_seconds wallAtStart =
        std::chrono::local_days{std::chrono::June / 15 / 2004} + std::chrono::hours(10);
};

ClockState& State() {
    static ClockState state;
    return state;
}

HappeningId Arrange(Agenda& agenda, std::int64_t moment, std::int64_t interval, std::function<void()> action) {
    const HappeningId id = ++State().lastId;
    agenda.emplace(std::pair{moment, id}, Happening{interval, std::move(action)});
    return id;
}

bool RemoveFrom(Agenda& agenda, HappeningId id) {
    return std::erase_if(agenda, [id](const auto& entry) { return entry.first.second == id; }) > 0;
}

// The first moment of the same phase that lies ahead.
std::int64_t NextTurn(std::int64_t moment, std::int64_t interval) {
    const std::int64_t late = std::max<std::int64_t>(State().now - moment, 0);
    return moment + (late / interval + 1) * interval;
}

// Takes the first happening out, and puts a periodic one back in before it runs: it may pump, or cancel itself.
std::function<void()> TakeFirst(Agenda& agenda) {
    auto node = agenda.extract(agenda.begin());
    std::function<void()> action = node.mapped().action;
    if (node.mapped().interval > 0) {
        node.key().first = NextTurn(node.key().first, node.mapped().interval);
        agenda.insert(std::move(node));
    }
    return action;
}

bool RunFirst(std::deque<std::function<void()>>& queue) {
    if (queue.empty()) return false;
    const std::function<void()> action = std::move(queue.front());
    queue.pop_front();
    CallProgram(action);
    return true;
}

bool RunDue() {
    ClockState& state = State();
    if (state.own.empty() || state.own.begin()->first.first > state.now) return false;
    CallProgram(TakeFirst(state.own));
    return true;
}

bool RunOwn() {
    return State().hookCalls == 0 && (RunFirst(State().posted) || RunDue());
}

void ShowFailure(const std::string& text) {
    platform::ShowBox(text, ProductName, platform::BoxIcon::Error);
}

std::int64_t NextMoment(std::int64_t limit) {
    const ClockState& state = State();
    const auto consider = [&limit](const Agenda& agenda) {
        if (!agenda.empty()) limit = std::min(limit, agenda.begin()->first.first);
    };
    consider(state.meanwhile);
    if (state.hookCalls == 0) consider(state.own);  // else what is due stays so
    return limit;
}

}  // namespace

std::int64_t Now() {
    return State().now;
}

std::int64_t NowMs() {
    return State().now / 1000;
}

void AdvanceTo(std::int64_t moment) {
    ClockState& state = State();
    while (!state.meanwhile.empty() && state.meanwhile.begin()->first.first <= moment) {
        state.now = std::max(state.now, state.meanwhile.begin()->first.first);
        TakeFirst(state.meanwhile)();
    }
    state.now = std::max(state.now, moment);
}

void Post(std::function<void()> action) {
    State().posted.push_back(std::move(action));
}

void SendBySystem(std::function<void()> action) {
    State().sent.push_back(std::move(action));
}

void CallProgram(const std::function<void()>& action) {
    try {
        action();
    } catch (const std::exception& failure) {  // RuntimeFailure, and a lack of memory
        if (!platform::InHookCall()) return ShowFailure(failure.what());
        Post([text = std::string(failure.what())] { ShowFailure(text); });
    }
}

void CallHookProcedure(const std::function<void()>& procedure) {
    ++State().hookCalls;
    CallProgram(procedure);
    --State().hookCalls;
}

void SetLocalTime(const platform::LocalTime& time) {
    using namespace std::chrono;
    const local_days date{year(time.year) / time.month / time.day};
    State().wallAtStart =
        date + hours(time.hour) + minutes(time.minute) + seconds(time.second) - seconds(State().now / 1'000'000);
}

bool RunUntil(const std::function<bool()>& done, std::int64_t limitMs) {
    const std::int64_t end = State().now + limitMs * 1000;
    platform::Pump();
    while (!done()) {
        if (State().now >= end) return false;
        RunFor(1);
    }
    return true;
}

void RunFor(std::int64_t ms) {
    const std::int64_t end = State().now + ms * 1000;
    platform::Pump();
    while (State().now < end) {
        AdvanceTo(NextMoment(end));
        platform::Pump();
    }
}

HappeningId At(std::int64_t moment, Action action) {
    return Arrange(State().own, moment * 1000, 0, std::move(action));
}

HappeningId After(std::int64_t ms, Action action) {
    return Arrange(State().own, State().now + ms * 1000, 0, std::move(action));
}

HappeningId Every(std::int64_t ms, Action action) {
    const std::int64_t interval = std::max<std::int64_t>(ms, 1) * 1000;
    return Arrange(State().own, State().now + interval, interval, std::move(action));
}

void RefuseTimers(bool refuse) {
    State().refusesTimers = refuse;
}

HappeningId MeanwhileAt(std::int64_t moment, Action action) {
    return Arrange(State().meanwhile, moment * 1000, 0, std::move(action));
}

HappeningId MeanwhileAfter(std::int64_t ms, Action action) {
    return Arrange(State().meanwhile, State().now + ms * 1000, 0, std::move(action));
}

}  // namespace simulated

namespace platform {

std::int64_t Microseconds() {
    return simulated::Now();
}

std::int64_t TickCount() {
    return simulated::NowMs();
}

void Sleep(std::int64_t milliseconds) {
    if (milliseconds > 0) simulated::AdvanceTo(simulated::Now() + milliseconds * 1000);
}

void SleepUntil(std::int64_t moment) {
    if (moment > simulated::Now()) simulated::AdvanceTo(moment);
}

LocalTime LocalNow() {
    using namespace std::chrono;
    const local_seconds now = simulated::State().wallAtStart + seconds(simulated::Now() / 1'000'000);
    const year_month_day date{floor<days>(now)};
    const hh_mm_ss time{now - floor<days>(now)};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

std::string ShortDateText() {
    const LocalTime today = LocalNow();
    return std::to_string(today.month) + "/" + std::to_string(today.day) + "/" + std::to_string(today.year);
}

void Pump() {
    simulated::AdvanceTo(simulated::Now());  // others may be due at this very moment
    while (simulated::RunFirst(simulated::State().sent) || simulated::RunOwn()) {
    }
}

bool InHookCall() {
    return simulated::State().hookCalls > 0;
}

void CallFromPump(std::function<void()> call) {
    simulated::Post(std::move(call));
}

TimerId StartTimer(int intervalMs, std::function<void()> handler) {
    if (simulated::State().refusesTimers) return 0;
    return static_cast<TimerId>(simulated::Every(intervalMs, std::move(handler)));
}

void StopTimer(TimerId timer) {
    if (timer > 0) simulated::RemoveFrom(simulated::State().own, static_cast<simulated::HappeningId>(timer));
}

}  // namespace platform
