#include "redaction/key_steps.h"

#include "folding/fold.h"

namespace {

bool IsAction(const JobEvent& event, bool isTaken) {
    if (event.dwType() == platform::InputMouse) return event.dwFlags() != MoveFlags;
    const bool isKeyDown = event.dwType() == platform::InputKeyboard && (event.KeyState() & platform::KeyUp) == 0 &&
                           !IsModifier(event.KeyCode() & 0xFFFF);
    return !isTaken && (isKeyDown || event.dwType() == INPUT_TEXT);
}

}  // namespace

const std::string* StoredTextOf(const Job& job, const JobEvent& event) {
    const std::int64_t index = event.StringIndex() - 1LL;
    const bool leads = index >= 0 && index < static_cast<std::int64_t>(job.Strings.size());
    return event.dwType() == INPUT_TEXT && leads ? &job.Strings[static_cast<std::size_t>(index)] : nullptr;
}

KeySteps::KeySteps(const Job& job, const std::vector<bool>& isTaken, const TextRows& rows, TokenReader& reader) {
    Collect(job, isTaken, reader);
    Match(rows);
}

void KeySteps::Collect(const Job& job, const std::vector<bool>& isTaken, TokenReader& reader) {
    std::int32_t done = 0;
    for (std::size_t i = 0; i < job.Events.size(); ++i) {
        const JobEvent& event = job.Events[i];
        firsts.push_back(steps.size());
        if (IsAction(event, isTaken[i])) ++done;
        KeyStep step{.event = static_cast<std::int32_t>(i), .done = done, .isTaken = isTaken[i]};
        if (event.dwType() == platform::InputKeyboard) {
            step.vk = event.KeyCode() & 0xFFFF;
            step.isDown = (event.KeyState() & platform::KeyUp) == 0;
            steps.push_back(step);
        } else if (const std::string* const text = StoredTextOf(job, event); text != nullptr) {
            CollectText(*text, step, done, reader);
        }
    }
    firsts.push_back(steps.size());
}

void KeySteps::CollectText(const std::string& text, KeyStep step, std::int32_t& done, TokenReader& reader) {
    for (const TextToken& token : reader.Read(text)) {
        if (token.vk == WheelKey) {
            ++done;
        } else if (token.vk >= 0 && (token.action == ActionDown || token.action == ActionUp)) {
            step.vk = token.vk;
            step.isDown = token.action == ActionDown;
            step.done = done;
            steps.push_back(step);
        }
        ++step.token;
    }
}

// A release ends all presses of its key since the last one: a key that is held repeats.
void KeySteps::Match(const TextRows& rows) {
    std::unordered_map<int, std::size_t> firstDown;
    for (std::size_t i = 0; i < steps.size(); ++i) {
        KeyStep& step = steps[i];
        const auto held = firstDown.find(step.vk);
        if (step.isDown) {
            // What is taken out goes until its release says otherwise; of a press that repeats, the first one stays.
            step.stays = !step.isTaken;
            if (held == firstDown.end() || (!step.isTaken && !steps[held->second].stays)) firstDown[step.vk] = i;
        } else if (held == firstDown.end()) {
            step.stays = !step.isTaken;
        } else {
            Decide(held->second, i, rows);
            firstDown.erase(held);
        }
    }
}

void KeySteps::Decide(std::size_t firstDown, std::size_t up, const TextRows& rows) {
    KeyStep& down = steps[firstDown];
    KeyStep& release = steps[up];
    if (down.isTaken) down.stays = IsModifier(down.vk) && (!release.isTaken || release.done > down.done);
    release.stays = down.stays;
    release.wasTaken = down.isTaken;
    if (!release.stays) release.takenRow = rows.rowOf[static_cast<std::size_t>(down.event)];
}
