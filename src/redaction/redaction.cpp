#include "redaction/redaction.h"

#include <algorithm>
#include <map>
#include <utility>

#include "base/runtime_failure.h"
#include "folding/fold.h"
#include "redaction/key_steps.h"
#include "redaction/taken_texts.h"
#include "redaction/text_rows.h"

namespace {

// The release of a key that no keyboard has: a text row has to have a token.
constexpr const char* NoKey = "{232 UP}";

using Place = RedactionFinding::Place;

const WindowSignature* WindowOf(const Job& job, const TextRow& row) {
    return FindOutermostWindow({job.Events, job.Strings, job.Windows, job.Chains}, row.chain);
}

class Redactor {
public:
    Redactor(Job& redactedJob, const RedactionChoice& redactionChoice)
        : job(redactedJob), choice(redactionChoice), rows(TextRowsOf(job, reader)), isChosen(rows.rows.size()) {}

    RedactionAccount Redact();

private:
    // What is taken.
    void Choose();
    void ChooseRow(std::int32_t number);
    void ChooseWindow(const std::string& caption);
    bool IsChosen(std::int32_t row) const;
    bool IsTaken(std::size_t event) const;

    // The job without it.
    void TakeOut();
    void DropBaredMoves();
    void AddTaken(std::size_t event, std::size_t row);
    void AddKey(std::size_t event);
    void AddKeyThatStays(std::size_t event);
    void AddOther(std::size_t event);
    void AddText(std::int32_t type, const JobEvent& was, std::int32_t stringIndex);
    std::string TextOfWhatStays(std::size_t row);
    void AddStoredTokens(std::size_t event, std::string& text);
    std::int32_t AddString(std::string text);
    std::int32_t StringOfRow(std::int32_t row);
    std::int32_t KeptString(const JobEvent& event);

    // What is told.
    RedactionAccount Account() const;
    std::string NameOfWindow(const TextRow& row) const;
    std::vector<RedactionFinding> Findings() const;

    Job& job;
    const RedactionChoice& choice;
    TokenReader reader;
    TextRows rows;
    std::vector<bool> isChosen;  // by row
    std::vector<bool> isTaken;   // by event
    const KeySteps* steps = nullptr;

    std::vector<JobEvent> events;
    std::vector<bool> wasHidden;  // by the events that stay
    std::vector<std::string> strings;
    std::map<std::int32_t, std::int32_t> stringOfRow;  // from 1, as the events have them
    std::map<std::int32_t, std::int32_t> newString;    // of what is left, by the old ones
    std::int32_t keysWithoutRow = 0;
    TakenTexts texts;
};

void Redactor::Choose() {
    for (std::size_t row = 0; row < rows.rows.size(); ++row) isChosen[row] = choice.all && rows.rows[row].isTyped;
    for (const std::int32_t number : choice.rows) ChooseRow(number);
    for (const std::string& caption : choice.windows) ChooseWindow(caption);
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        if (isChosen[row]) texts.Add(rows.rows[row].tokens);
    }
}

void Redactor::ChooseRow(std::int32_t number) {
    const auto found =
        std::find_if(rows.rows.begin(), rows.rows.end(), [number](const TextRow& row) { return row.number == number; });
    if (found == rows.rows.end() || !found->isTyped) {
        throw RuntimeFailure(FailureKind::Range, "Row " + std::to_string(number) + " holds no typed text.");
    }
    isChosen[static_cast<std::size_t>(found - rows.rows.begin())] = true;
}

void Redactor::ChooseWindow(const std::string& caption) {
    bool found = false;
    for (std::size_t row = 0; row < rows.rows.size(); ++row) {
        const WindowSignature* const window = WindowOf(job, rows.rows[row]);
        if (!rows.rows[row].isTyped || window == nullptr || window->Caption != caption) continue;
        isChosen[row] = found = true;
    }
    if (!found) throw RuntimeFailure(FailureKind::Range, "No text was typed into a window '" + caption + "'.");
}

bool Redactor::IsChosen(std::int32_t row) const {
    return row != TextRows::NoRow && isChosen[static_cast<std::size_t>(row)];
}

// Of all, also keys in no row, and releases of keys that were pressed before the recording.
bool Redactor::IsTaken(std::size_t event) const {
    if (IsChosen(rows.rowOf[event])) return true;
    const JobEvent& key = job.Events[event];
    return choice.all && key.dwType() == platform::InputKeyboard && !IsModifier(key.KeyCode() & 0xFFFF);
}

RedactionAccount Redactor::Redact() {
    Choose();
    for (std::size_t i = 0; i < job.Events.size(); ++i) isTaken.push_back(IsTaken(i));
    const KeySteps keySteps(job, isTaken, rows, reader);
    steps = &keySteps;
    TakeOut();
    job.Events = std::move(events);
    job.Strings = std::move(strings);
    DropBaredMoves();
    return Account();
}

void Redactor::TakeOut() {
    for (std::size_t i = 0; i < job.Events.size(); ++i) {
        if (IsChosen(rows.rowOf[i])) {
            AddTaken(i, static_cast<std::size_t>(rows.rowOf[i]));
        } else if (job.Events[i].dwType() == platform::InputKeyboard) {
            AddKey(i);
        } else {
            AddOther(i);
        }
        wasHidden.resize(events.size(), rows.isHidden[i]);
    }
}

// Moves that the editor hides in a row that is not there any more would be a row of their own.
void Redactor::DropBaredMoves() {
    const TextRows left = TextRowsOf(job, reader);
    std::size_t count = 0;
    for (std::size_t i = 0; i < job.Events.size(); ++i) {
        if (!wasHidden[i] || left.isHidden[i]) job.Events[count++] = job.Events[i];
    }
    job.Events.resize(count);
}

// What comes right behind it would become its release, and the two a click.
bool IsButtonDown(const JobEvent& event) {
    constexpr std::int32_t Downs =
        platform::MouseLeftDown | platform::MouseRightDown | platform::MouseMiddleDown | platform::MouseXDown;
    return event.dwType() == platform::InputMouse && (event.dwFlags() & Downs) != 0;
}

// Of a row that is taken out there stay its head, its end, and the releases of what was pressed before it or is held
// for something else.
void Redactor::AddTaken(std::size_t event, std::size_t row) {
    const JobEvent& was = job.Events[event];
    const auto index = static_cast<std::int32_t>(event);
    if (index == rows.rows[row].head) {
        stringOfRow[static_cast<std::int32_t>(row)] = AddString(TextOfWhatStays(row));
        AddText(INPUT_TEXT, was, StringOfRow(static_cast<std::int32_t>(row)));
        events.back().WindowChainIndex = was.WindowChainIndex;
        events.back().WaitForWindow = was.WaitForWindow;
        events.back().IfNoWindow = was.IfNoWindow;
        return;
    }
    const bool isKey = was.dwType() == platform::InputKeyboard;
    if (isKey && !steps->Of(event).front().isDown && steps->Of(event).front().stays) {
        AddKeyThatStays(event);
    } else if (index == rows.rows[row].last || IsButtonDown(events.back())) {
        AddText(TextContinuation, was, StringOfRow(static_cast<std::int32_t>(row)));
    }
}

// The release of a key that was taken out keeps its time in the row that it stands in.
void Redactor::AddKey(std::size_t event) {
    const JobEvent& was = job.Events[event];
    const KeyStep& step = steps->Of(event).front();
    if (step.stays) {
        AddKeyThatStays(event);
    } else if (rows.rowOf[event] != TextRows::NoRow) {
        AddText(TextContinuation, was, StringOfRow(step.takenRow));
    } else if (step.isDown) {
        ++keysWithoutRow;
    }
}

// A press that has become a token is that of the left ALT key, whichever it was: both have one name.
void Redactor::AddKeyThatStays(std::size_t event) {
    constexpr std::int32_t LeftAlt = 164;
    constexpr std::int32_t RightAlt = 165;
    JobEvent& added = events.emplace_back(job.Events[event]);
    const KeyStep& step = steps->Of(event).front();
    if (step.vk != RightAlt || !step.wasTaken) return;
    added.KeyCode() += LeftAlt - RightAlt;
    added.KeyState() = platform::KeyUp;
}

// An event of a text row still has the key that it was, where nothing reads it.
void Redactor::AddOther(std::size_t event) {
    JobEvent& added = events.emplace_back(job.Events[event]);
    if (added.dwType() != INPUT_TEXT && added.dwType() != TextContinuation) return;
    added.StringIndex() = KeptString(added);
    if (choice.all) added.word[1] = added.word[2] = added.word[4] = added.word[5] = 0;
}

void Redactor::AddText(std::int32_t type, const JobEvent& was, std::int32_t stringIndex) {
    JobEvent& added = events.emplace_back();
    added.dwType() = type;
    added.time() = was.time();
    added.StringIndex() = stringIndex;
}

// Modifiers that stay down, and notches of the wheel.
std::string Redactor::TextOfWhatStays(std::size_t row) {
    std::string text;
    for (std::int32_t i = rows.rows[row].head; i <= rows.rows[row].last; ++i) {
        const auto event = static_cast<std::size_t>(i);
        if (rows.rowOf[event] != static_cast<std::int32_t>(row)) continue;
        const JobEvent& was = job.Events[event];
        if (was.dwType() == platform::InputMouse) {
            text += TokenText(WheelKey, was.mouseData() >= 1 ? ActionUp : ActionDown);
        } else if (was.dwType() == platform::InputKeyboard) {
            const KeyStep& step = steps->Of(event).front();
            if (step.isDown && step.stays) text += TokenText(step.vk, ActionDown);
        } else {
            AddStoredTokens(event, text);
        }
    }
    return text.empty() ? NoKey : text;
}

void Redactor::AddStoredTokens(std::size_t event, std::string& text) {
    const std::string* const stored = StoredTextOf(job, job.Events[event]);
    if (stored == nullptr) return;
    auto step = steps->Of(event).begin();
    std::int32_t place = 0;
    for (const TextToken& token : reader.Read(*stored)) {
        if (token.vk == WheelKey) text += token.action == ActionPress ? "{WHEEL}" : TokenText(WheelKey, token.action);
        if (step != steps->Of(event).end() && step->token == place) {
            if (step->stays) text += TokenText(step->vk, token.action);
            ++step;
        }
        ++place;
    }
}

std::int32_t Redactor::AddString(std::string text) {
    strings.push_back(std::move(text));
    return static_cast<std::int32_t>(strings.size());
}

// Of keys in no row, too, when one of their releases stands in one.
std::int32_t Redactor::StringOfRow(std::int32_t row) {
    const auto found = stringOfRow.find(row);
    return found != stringOfRow.end() ? found->second : stringOfRow[row] = AddString(NoKey);
}

// 0, which leads nowhere, for an index that led nowhere.
std::int32_t Redactor::KeptString(const JobEvent& event) {
    const std::int32_t old = event.StringIndex();
    if (old < 1 || static_cast<std::size_t>(old) > job.Strings.size()) return 0;
    const auto found = newString.find(old);
    if (found != newString.end()) return found->second;
    return newString[old] = AddString(job.Strings[static_cast<std::size_t>(old - 1)]);
}

std::int32_t KeystrokesOf(const TextRow& row) {
    return static_cast<std::int32_t>(std::count_if(row.tokens.begin(), row.tokens.end(), IsTyped));
}

RedactionAccount Redactor::Account() const {
    RedactionAccount account;
    if (keysWithoutRow > 0) account.rows.push_back({0, "", keysWithoutRow});
    for (std::size_t i = 0; i < rows.rows.size(); ++i) {
        const TextRow& row = rows.rows[i];
        if (isChosen[i]) account.rows.push_back({row.number, NameOfWindow(row), KeystrokesOf(row)});
    }
    account.findings = Findings();
    return account;
}

// The caption may hold what was typed.
std::string Redactor::NameOfWindow(const TextRow& row) const {
    const WindowSignature* const window = WindowOf(job, row);
    if (window == nullptr) return "";
    if (!window->Caption.empty() && !texts.StandIn(window->Caption)) return window->Caption;
    return "window " + std::to_string(window - job.Windows.data());
}

std::vector<RedactionFinding> Redactor::Findings() const {
    std::vector<RedactionFinding> findings;
    const auto look = [&](Place place, std::int32_t index, bool found) {
        if (found) findings.push_back({place, index});
    };
    look(Place::Description, 0, texts.StandIn(job.Description));
    look(Place::ProgramPath, 0, texts.StandIn(job.StartProgram.ProgramPath));
    look(Place::CommandLine, 0, texts.StandIn(job.StartProgram.CommandLine));
    for (std::size_t i = 0; i < job.Windows.size(); ++i) {
        look(Place::Caption, static_cast<std::int32_t>(i), texts.StandIn(job.Windows[i].Caption));
    }
    for (std::size_t i = 0; i < rows.rows.size(); ++i) {
        const TextRow& row = rows.rows[i];
        look(Place::Row, row.number, !isChosen[i] && row.isTyped && texts.StandIn(row.tokens));
    }
    return findings;
}

}  // namespace

RedactionAccount Redact(Job& job, const RedactionChoice& choice) {
    return Redactor(job, choice).Redact();
}

std::string SentenceOf(const RedactionFinding& finding) {
    const std::string index = std::to_string(finding.index);
    const auto sentence = [](const std::string& place) { return place + " still holds a text that was taken out."; };
    switch (finding.place) {
        case Place::Caption:
            return sentence("The caption of window " + index);
        case Place::Description:
            return sentence("The description of the job");
        case Place::ProgramPath:
            return sentence("The path of the program that the job starts");
        case Place::CommandLine:
            return sentence("The command line of the program that the job starts");
        case Place::Row:
            return sentence("Row " + index);
    }
    return "";
}
