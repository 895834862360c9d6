// Random operations on random jobs, held against JobModel after every one of them. A sequence that fails is played
// alone by
//
//     TESSARINE_SEED=417 editor_tests --gtest_filter='*EditSequences*/0'
//
// and tells what it does.
#include <cstdlib>

#include "editor/edit_story.h"
#include "editor/insert_recording.h"
#include "editor/job_model.h"
#include "folding/random_job.h"
#include "identity/window_identity.h"
#include "recording/recording_session.h"
#include "support/recording_view_stand_in.h"

using namespace edit_story;

namespace {

constexpr std::uint32_t Sequences = 2000;  // TESSARINE_SESSIONS plays another number
constexpr std::uint32_t Shards = 4;
constexpr std::int64_t FarOff = 1'000'000'000;  // times beyond it can make a save or a recording fail

bool IsText(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
}

// What nothing reads: of a notch that has become text, its time as a mouse event.
JobEvent WithoutRemains(JobEvent event) {
    if (IsText(event)) event.word[5] = 0;
    return event;
}

std::string Told(const JobEvent& event) {
    std::string text;
    for (const std::int32_t word : event.word) text += std::to_string(word) + " ";
    return text + "chain " + std::to_string(event.WindowChainIndex) + " wait " + std::to_string(event.WaitForWindow) +
           " else " + std::to_string(event.IfNoWindow);
}

std::string Difference(const std::string& what, const std::vector<JobEvent>& found,
                       const std::vector<JobEvent>& expected) {
    for (std::size_t i = 0; i < found.size() && i < expected.size(); ++i) {
        const JobEvent a = WithoutRemains(found[i]);
        const JobEvent b = WithoutRemains(expected[i]);
        if (SameEvents({a}, {b})) continue;
        return what + ", event " + std::to_string(i) + ": " + Told(a) + "; expected " + Told(b);
    }
    if (found.size() == expected.size()) return "";
    return what + ": " + std::to_string(found.size()) + " events, expected " + std::to_string(expected.size());
}

bool SameWindows(const std::vector<WindowSignature>& a, const std::vector<WindowSignature>& b) {
    return std::ranges::equal(a, b, [](const WindowSignature& x, const WindowSignature& y) {
        return x.Placement == y.Placement && x.Caption == y.Caption && x.ClassName == y.ClassName &&
               x.ControlId == y.ControlId;
    });
}

bool SameChains(const std::vector<WindowChain>& a, const std::vector<WindowChain>& b) {
    return std::ranges::equal(a, b, [](const WindowChain& x, const WindowChain& y) {
        return x.LeafWindow == y.LeafWindow && x.Depth == y.Depth && x.Path == y.Path;
    });
}

std::string Difference(const std::string& what, const Job& found, const Job& expected) {
    if (found.Strings != expected.Strings) return what + ": other texts";
    if (!SameWindows(found.Windows, expected.Windows)) return what + ": other windows";
    if (!SameChains(found.Chains, expected.Chains)) return what + ": other chains";
    return Difference(what, found.Events, expected.Events);
}

bool SameRows(const std::vector<ModelRow>& a, const std::vector<ModelRow>& b) {
    return std::ranges::equal(a, b, [](const ModelRow& x, const ModelRow& y) {
        return x.first == y.first && x.last == y.last && x.isKeys == y.isKeys && x.flags == y.flags && x.text == y.text;
    });
}

std::string Told(const std::vector<ModelRow>& rows) {
    std::string text;
    for (const ModelRow& row : rows) {
        text += (row.isKeys ? "keys " : "mouse ") + std::to_string(row.first) + "-" + std::to_string(row.last) + " " +
                (row.isKeys ? row.text : std::to_string(row.flags)) + "; ";
    }
    return text;
}

std::vector<ModelRow> RowsInEditor() {
    std::vector<ModelRow> rows;
    for (std::size_t i = 0; i < editState.RowIndex.size(); ++i) {
        const auto index = static_cast<std::size_t>(editState.RowIndex[i]);
        if (editState.RowKind[i] == KeyRowKind) {
            const KeyRow& row = editState.KeyRows[index];
            rows.push_back({row.FirstEvent, row.LastEvent, true, 0, row.Text});
        } else {
            const MouseRow& row = editState.MouseRows[index];
            rows.push_back({row.FirstEvent, row.LastEvent, false, row.Flags, ""});
        }
    }
    return rows;
}

// One sequence: the editor and the model side by side.
class Sequence {
public:
    explicit Sequence(std::uint32_t seed);

    // What has gone wrong; empty when all is well.
    std::string Play();

    std::string story;

private:
    std::int32_t Below(std::int32_t limit) { return std::uniform_int_distribution<std::int32_t>(0, limit - 1)(random); }
    Job NextJob(int gestures);
    JobModel& Model() { return states[now]; }
    bool RowsAreThere() { return !editState.RowIndex.empty(); }
    bool TimesAreNear();

    std::string NextStep();
    void SelectSome(std::int32_t limit);
    std::string DeleteSome();
    std::string ChangeDelay();
    std::string ChangeDuration();
    std::string ChangeTarget();
    std::string RetypeRow();
    std::string Describe();
    std::string InsertRecorded();
    std::string GoBack();
    std::string GoOn();
    std::string SaveIt();
    std::string SaveUnderOtherName();

    std::int32_t AnyValue();
    Job PieceFor(std::int64_t base);
    std::string Tried(const std::string& what, JobModel next, std::optional<bool> step, bool threw);
    void Add(JobModel next);

    std::string Invariants();
    std::string RowsAndFile();
    std::string PaneDifference();
    std::string Compared();
    std::string AllSteps(std::string (Sequence::*step)(), std::size_t end);
    std::string AtTheEnd();

    std::mt19937 random;
    std::int32_t lastTag = 0;
    std::string file = path;
    std::vector<JobModel> states;  // the history; the first is the job as it was opened
    std::size_t now = 0;
    std::optional<std::size_t> saved = 0;
    bool touched = false;   // a button was pressed that changed nothing
    std::int32_t from = 0;  // the selection
    std::int32_t to = 0;
};

Sequence::Sequence(std::uint32_t seed) : random(seed) {
    const Job job = NextJob(Below(10) == 0 ? 0 : 4 + Below(36));
    if (EditorIsOpen()) EditorHasClosed();
    Open(job);
    states.emplace_back(InFile());
}

// Every event can be told from all others, and times go by in all sorts of steps.
Job Sequence::NextJob(int gestures) {
    Job job = RandomJob(static_cast<unsigned>(random()), gestures);
    std::int32_t time = 0;
    for (JobEvent& event : job.Events) {
        static constexpr std::int32_t steps[] = {0, 0, 10, 10, 15, 37, 400, -20};
        time += steps[Below(std::size(steps))];
        event.time() = time;
        const bool isNotch = event.dwType() == platform::InputMouse && event.mouseData() % 120 == 0 &&
                             event.dwFlags() == MouseFlagBase + platform::MouseWheel;
        if (isNotch)
            event.dx() = ++lastTag;
        else if (event.dwType() == platform::InputMouse)
            event.word[6] = ++lastTag;
        else
            event.word[4] = ++lastTag;
        if (event.dwType() == platform::InputMouse) --event.dy();  // -1 is as good a place as any
    }
    return job;
}

bool Sequence::TimesAreNear() {
    return std::ranges::all_of(Times(), [](std::int64_t time) { return std::abs(time) < FarOff; });
}

void Sequence::Add(JobModel next) {
    states.resize(++now);
    states.push_back(std::move(next));
    if (saved && *saved >= now) saved.reset();
}

// What has been done to the editor, `threw` when that was refused, and what the model says to it.
std::string Sequence::Tried(const std::string& what, JobModel next, std::optional<bool> step, bool threw) {
    if (threw == step.has_value()) return what + (threw ? " was refused" : " was not refused");
    if (step.value_or(false)) Add(std::move(next));
    return "";
}

void Sequence::SelectSome(std::int32_t limit) {
    const auto rows = static_cast<std::int32_t>(editState.RowIndex.size());
    from = Below(rows);
    to = std::min(rows - 1, from + Below(Below(2) == 0 ? 1 : limit));
    story += "select " + std::to_string(from) + "-" + std::to_string(to) + "\n";
    Below(2) == 0 ? Select(from, to) : Select(to, from);
}

std::int32_t Sequence::AnyValue() {
    static constexpr std::int32_t values[] = {0, 1, 10, 10, 77, 500, -30, 1'200, 33, 2'000'000'000};
    return values[Below(std::size(values))];
}

std::string Sequence::DeleteSome() {
    SelectSome(4);
    story += "delete\n";
    JobModel next = Model();
    const std::optional<bool> step = next.Remove(from, to);
    bool threw = false;
    try {
        Delete(from, to);
    } catch (const RuntimeFailure&) {
        threw = true;
    }
    return Tried("the deletion", std::move(next), step, threw);
}

std::string Sequence::ChangeDelay() {
    SelectSome(6);
    const std::int32_t value = AnyValue();
    story += "delay " + std::to_string(value) + "\n";
    JobModel next = Model();
    const std::optional<bool> step = next.SetDelays(from, to, value);
    bool threw = false;
    try {
        SetDelay(std::to_string(value));
        touched = true;
    } catch (const RuntimeFailure&) {
        threw = true;
        Select(from, to);
    }
    return Tried("the delay", std::move(next), step, threw);
}

std::string Sequence::ChangeDuration() {
    SelectSome(6);
    const std::int32_t value = AnyValue();
    story += "duration " + std::to_string(value) + "\n";
    JobModel next = Model();
    const std::optional<bool> step = next.SetDurations(from, to, value);
    bool threw = false;
    try {
        SetDuration(std::to_string(value));
        touched = true;
    } catch (const RuntimeFailure&) {
        threw = true;
        Select(from, to);
    }
    return Tried("the duration", std::move(next), step, threw);
}

// Both fields are of one row alone. What is typed into one of them is one step.
std::string Sequence::ChangeTarget() {
    SelectSome(2);
    JobModel next = Model();
    bool isStep = false;
    if (Below(2) == 0) {
        for (int key = Below(2); key >= 0; --key) {
            const std::int32_t seconds = Below(4) * 5;
            story += "wait " + std::to_string(seconds) + "\n";
            WaitForWindowChanged(seconds);
            isStep = (from == to && next.SetWait(from, seconds)) || isStep;
        }
    } else {
        const std::int32_t choice = Below(3);
        story += "without the window " + std::to_string(choice) + "\n";
        IfNoWindowChanged(choice);
        isStep = from == to && next.SetIfNoWindow(from, static_cast<std::uint8_t>(choice));
    }
    return Tried("the target", std::move(next), isStep, false);
}

std::string Sequence::RetypeRow() {
    static const std::string texts[] = {"", "abc", "{L_CTRL DOWN}c{L_CTRL UP}", "{F5}", "{SHIFT DOWN}", "{WHEEL UP}"};
    SelectSome(1);
    if (editState.RowKind[static_cast<std::size_t>(from)] != KeyRowKind) return "";
    const std::int32_t keyRow = editState.RowIndex[static_cast<std::size_t>(from)];
    JobModel next = Model();
    bool isStep = false;
    for (int key = Below(3); key >= 0; --key) {
        const std::string text =
            Below(4) == 0 ? editState.FoldedRowText[static_cast<std::size_t>(keyRow)] : texts[Below(std::size(texts))];
        story += "type " + text + "\n";
        SetKeyText(keyRow, text);
        isStep = next.SetText(from, text) || isStep;
    }
    return Tried("the text", std::move(next), isStep, false);
}

std::string Sequence::Describe() {
    JobModel next = Model();
    next.description = std::to_string(Below(3));
    story += "describe " + next.description + "\n";
    TextRunEnds();
    SetDescription(next.description);
    const bool isStep = next.description != Model().description;
    return Tried("the description", std::move(next), isStep, false);
}

// A recording has no texts.
Job Sequence::PieceFor(std::int64_t base) {
    Job piece = NextJob(Below(8) == 0 ? 0 : 1 + Below(12));
    std::erase_if(piece.Events, IsText);
    const auto windows = static_cast<std::int32_t>(windowArrays.windows.size());
    const auto chains = static_cast<std::int32_t>(windowArrays.chains.size());
    for (WindowChain& chain : piece.Chains) {
        for (std::int32_t level = 0; level <= chain.Depth; ++level)
            chain.Path[static_cast<std::size_t>(level)] += windows;
        chain.LeafWindow += windows;
    }
    for (JobEvent& event : piece.Events) {
        event.time() += static_cast<std::int32_t>(base);
        if (event.WindowChainIndex >= 0) event.WindowChainIndex += chains;
    }
    return piece;
}

void PutIntoRecording(const Job& piece) {
    for (const JobEvent& event : piece.Events) {
        recordingSession.recordingEvents.NewSlot(++recordingSession.eventCount) = event;
    }
    for (const WindowSignature& window : piece.Windows) windowArrays.windows.push_back(window);
    for (const WindowChain& chain : piece.Chains) {
        windowArrays.chains.Append();
        windowArrays.chains.Set(windowArrays.chains.size() - 1,
                                std::span(chain.Path).first(static_cast<std::size_t>(chain.Depth) + 1));
    }
}

std::string Sequence::InsertRecorded() {
    if (!TimesAreNear()) return "";
    if (RowsAreThere()) SelectSome(1);
    const bool above = Below(2) == 0;
    JobModel next = Model();
    const JobModel::Place place = next.PlaceBeside(from, above);
    simulated::AnswerNextBox({.yes = true});
    above ? start_recording_above() : start_recording_below();
    if (recordingSession.recordingStartTick != platform::TickCount() - place.base) return "the piece begins too late";
    PutIntoRecording(PieceFor(place.base));
    Job piece;
    recordingViewStandIn.editor = [&piece] {
        piece = RecordedJob();  // its clicks are mended
        ZavrsiUmetanjeSnimanjem();
    };
    StopRecording();
    story += "insert " + std::to_string(piece.Events.size()) + (above ? " above\n" : " below\n");
    if (piece.Events.empty()) return "";
    const std::optional<bool> step = next.Insert(place, piece);
    return Tried("the insertion", std::move(next), step, false);
}

std::string Sequence::GoBack() {
    story += "undo\n";
    if (CanUndo() != (now > 0)) return "whether a step can be taken back";
    Undo();
    if (now > 0) touched = false, --now;
    return "";
}

std::string Sequence::GoOn() {
    story += "redo\n";
    if (CanRedo() != (now + 1 < states.size())) return "whether a step can be done again";
    Redo();
    if (now + 1 < states.size()) touched = false, ++now;
    return "";
}

std::string Sequence::SaveIt() {
    if (!TimesAreNear()) return "";
    story += "save\n";
    if (!save_button()) return "the job was not saved";
    saved = now;
    touched = false;
    if (InFile(file).Description != Model().description) return "another description in the file";
    if (GridLinesOfFile(file) != GridLines()) return "the file does not say what the grid shows";
    return Difference("the file", InFile(file), Model().Saved());
}

std::string Sequence::SaveUnderOtherName() {
    if (!TimesAreNear()) return "";
    const std::string name = Below(2) == 0 ? "Second" : "Third";
    story += "save as " + name + "\n";
    file = "C:\\jobs\\" + name + ".tsj";
    simulated::LosePath(file);
    editViewStandIn.names = {name};
    save_as_button();
    saved = now;
    touched = false;
    if (editState.jobName != file) return "the job was not saved under another name";
    return Difference("the new file", InFile(file), Model().Saved());
}

std::string Sequence::NextStep() {
    using Step = std::string (Sequence::*)();
    static constexpr Step ofRows[] = {&Sequence::DeleteSome,     &Sequence::DeleteSome,   &Sequence::ChangeDelay,
                                      &Sequence::ChangeDuration, &Sequence::ChangeTarget, &Sequence::RetypeRow,
                                      &Sequence::RetypeRow,      &Sequence::RetypeRow};
    static constexpr Step ofTheJob[] = {&Sequence::Describe,
                                        &Sequence::InsertRecorded,
                                        &Sequence::InsertRecorded,
                                        &Sequence::GoBack,
                                        &Sequence::GoBack,
                                        &Sequence::GoBack,
                                        &Sequence::GoOn,
                                        &Sequence::GoOn,
                                        &Sequence::GoOn,
                                        &Sequence::SaveIt,
                                        &Sequence::SaveUnderOtherName};
    const Step step =
        RowsAreThere() && Below(2) == 0 ? ofRows[Below(std::size(ofRows))] : ofTheJob[Below(std::size(ofTheJob))];
    return (this->*step)();
}

// What a save writes is the model's job, and the rows of that job are the rows of the grid.
std::string Sequence::RowsAndFile() {
    const std::vector<ModelRow> rows = RowsInEditor();
    if (!SameRows(rows, Model().Rows())) return "rows: " + Told(rows) + "\n expected: " + Told(Model().Rows());
    const Job toSave = JobToSave(editState.header);
    const std::string difference = Difference("what a save would write", toSave, Model().Saved());
    if (!difference.empty()) return difference;
    const std::vector<ModelRow> rowsOfFile = JobModel(toSave).Rows();
    return SameRows(rows, rowsOfFile) ? "" : "rows: " + Told(rows) + "\n those of the file: " + Told(rowsOfFile);
}

std::string Sequence::Invariants() {
    const std::size_t rows = editState.MouseRows.size() + editState.KeyRows.size();
    if (editState.RowIndex.size() != rows || editState.RowKind.size() != rows || editState.RowNumber.size() != rows) {
        return "an entry for each row";
    }
    if (editState.Strings.size() != editState.KeyRows.size()) return "a string for each keystroke row";
    if (editState.FoldedRowText.size() != editState.KeyRows.size()) return "a folded text for each keystroke row";
    for (std::size_t i = 0; i < editState.KeyRows.size(); ++i) {
        if (editState.Strings[i] != editState.KeyRows[i].Text) return "the strings are the texts of the rows";
    }
    for (std::size_t i = 0; i < editState.EditEvents.size() && i < editState.PristineEvents.size(); ++i) {
        const JobEvent& stored = editState.PristineEvents[i];
        if (IsText(stored) && stored.StringIndex() != editState.EditEvents[i].StringIndex())
            return "row numbers differ";
        if (stored.time() != editState.EditEvents[i].time()) return "times differ";
    }
    if (editState.header.Description != Model().description) return "the description";
    if (SaveIsEnabled() != (touched || saved != now)) return "whether it can be saved";
    return Difference("the folded events", editState.EditEvents, Model().Folded());
}

std::string Sequence::PaneDifference() {
    const auto common = [this](auto value) {
        for (std::int32_t row = from + 1; row <= to; ++row) {
            if (value(row) != value(from)) return std::string();
        }
        return std::to_string(value(from));
    };
    GetOdkudDokud(from, to);
    if (!RowsAreThere()) return eventPane.pickersEnabled ? "a pane without rows" : "";
    if (to >= Model().RowCount()) return "rows are selected that are not there";
    if (eventPane.delay_mk != common([this](std::int32_t row) { return Model().DelayOf(row); }))
        return "the delay shown";
    if (eventPane.duration_mk != common([this](std::int32_t row) { return Model().DurationOf(row); })) {
        return "the duration shown";
    }
    const JobEvent& event = Model().FirstEventOf(from);
    if (eventPane.targetApplies != (from == to && event.WindowChainIndex >= 0)) return "whether the target is shown";
    if (!eventPane.targetApplies) return "";
    return eventPane.wait_for_window_ms == event.WaitForWindow && eventPane.if_no_window == event.IfNoWindow
               ? ""
               : "the target shown";
}

std::string Sequence::Compared() {
    for (const auto compare : {&Sequence::RowsAndFile, &Sequence::Invariants, &Sequence::PaneDifference}) {
        const std::string wrong = (this->*compare)();
        if (!wrong.empty()) return wrong;
    }
    return "";
}

std::string Sequence::AllSteps(std::string (Sequence::*step)(), std::size_t end) {
    while (now != end) {
        std::string wrong = (this->*step)();
        if (wrong.empty()) wrong = Compared();
        if (!wrong.empty()) return wrong;
    }
    return "";
}

// Saved, read and folded; all taken back and saved; all done again.
std::string Sequence::AtTheEnd() {
    const std::vector<std::string> lines = GridLines();
    const std::size_t end = now;
    std::string wrong = SaveIt();
    if (wrong.empty()) wrong = AllSteps(&Sequence::GoBack, 0);
    if (wrong.empty() && CanUndo()) wrong = "more can be taken back than was done";
    if (wrong.empty()) wrong = SaveIt();
    if (wrong.empty()) wrong = Difference("all taken back", InFile(file), asOpened);
    if (wrong.empty() && !SameEvents(InFile(file).Events, asOpened.Events)) wrong = "all taken back: other remains";
    if (wrong.empty()) wrong = AllSteps(&Sequence::GoOn, end);
    return wrong.empty() && GridLines() != lines ? "all done again: other rows" : wrong;
}

std::string Sequence::Play() {
    std::string wrong = Compared();
    for (int left = 5 + Below(25); left > 0 && wrong.empty(); --left) {
        wrong = NextStep();
        if (wrong.empty()) wrong = Compared();
    }
    return wrong.empty() ? AtTheEnd() : wrong;
}

void PlayOne(std::uint32_t seed, bool telling) {
    Sequence sequence(seed);
    const std::string wrong = sequence.Play();
    if (telling) std::printf("%s", sequence.story.c_str());
    ASSERT_EQ(wrong, "") << "TESSARINE_SEED=" << seed << "\n" << sequence.story;
}

std::uint32_t NumberFrom(const char* variable, std::uint32_t otherwise) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? otherwise : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

class EditSequences : public testing::TestWithParam<std::uint32_t> {};

TEST_P(EditSequences, AreAsTheModelHasThem) {
    if (const std::uint32_t seed = NumberFrom("TESSARINE_SEED", 0)) return PlayOne(seed, true);
    const std::uint32_t sequences = NumberFrom("TESSARINE_SESSIONS", Sequences);
    for (std::uint32_t seed = 1 + GetParam(); seed <= sequences && !HasFatalFailure(); seed += Shards) {
        PlayOne(seed, false);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditSequences, testing::Range(0U, Shards));

}  // namespace
