#include "folding/fold.h"

#include <algorithm>
#include <array>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "folding/held_keys.h"
#include "keystrokes/notation.h"
#include "platform/boxes.h"

namespace {

constexpr std::int32_t NoChain = -111;       // CurrentChain.Path[0]: no keystroke row is open
constexpr std::int32_t ComparedLevels = 64;  // as many levels of a chain as are kept for the open row
constexpr std::int32_t KeyStates = 4;

// A press and the release that makes it a click.
struct ButtonPair {
    std::int32_t down;
    std::int32_t up;
};
constexpr ButtonPair ButtonPairs[] = {
    {MouseFlagBase + platform::MouseLeftDown, MouseFlagBase + platform::MouseLeftUp},
    {MouseFlagBase + platform::MouseRightDown, MouseFlagBase + platform::MouseRightUp},
    {MouseFlagBase + platform::MouseMiddleDown, MouseFlagBase + platform::MouseMiddleUp},
    {MouseFlagBase + platform::MouseXDown, MouseFlagBase + platform::MouseXUp},
};

bool IsPair(std::int32_t down, std::int32_t up) {
    return std::any_of(std::begin(ButtonPairs), std::end(ButtonPairs),
                       [=](const ButtonPair& pair) { return pair.down == down && pair.up == up; });
}

bool SamePlace(const JobEvent& a, const JobEvent& b) {
    return a.mouseData() == b.mouseData() && a.dx() == b.dx() && a.dy() == b.dy();
}

bool IsMove(const JobEvent& event) {
    return event.dwType() == platform::InputMouse && event.dwFlags() == MoveFlags;
}

// Of the buttons only the left and right releases leave an open keystroke row as it is, as moves do. A press ends it,
// and so do a middle and an X release, for no better reason than that it has always been so.
bool EndsKeyRow(const JobEvent& event) {
    return event.dwFlags() != MouseFlagBase + platform::MouseLeftUp &&
           event.dwFlags() != MouseFlagBase + platform::MouseRightUp;
}

std::int32_t ComparedLevelsOf(const WindowChain& chain) {
    return std::clamp(chain.Depth, -1, ComparedLevels - 1) + 1;
}

bool IsModifierToken(const std::string& token) {
    static constexpr const char* beginnings[] = {"{ALT",  "{SHIFT",  "{L_SHIFT", "{R_SHIFT",
                                                 "{CTRL", "{L_CTRL", "{R_CTRL"};
    return std::any_of(std::begin(beginnings), std::end(beginnings),
                       [&token](const char* beginning) { return token.starts_with(beginning); });
}

// EventToToken with a memory. It lives for one pass: the keyboard layout may change before the next.
class TokenMemory {
public:
    struct Entry {
        bool known = false;
        bool modifier = false;
        std::string token;
    };

    const Entry& Of(int vk, std::int32_t keyState) {
        Entry& entry = CheckedAt(entries, vk, "Key code")[static_cast<std::size_t>(keyState)];
        if (!entry.known) {
            entry.token = EventToToken(vk, keyState);
            entry.modifier = IsModifierToken(entry.token);
            entry.known = true;
        }
        return entry;
    }

private:
    std::vector<std::array<Entry, KeyStates>> entries{KeyNameCount};
};

// What the pass did last, as far as it decides whether a key and a wheel notch may share a row.
enum class LastKind { Unset, Click, Keys, Wheel, Moves };

// One walk over the events.
class Pass {
public:
    Pass(const JobArrays& foldedJob, FoldedRows& foldedRows, std::vector<JobEvent>* editedEvents)
        : job(foldedJob), rows(foldedRows), edited(editedEvents) {
        CurrentChain.Path[0] = NoChain;
        CurrentChain.Depth = -1;
    }

    void Run();

private:
    void FoldEvent(std::int32_t index);
    void FoldKey(std::int32_t index);
    void FoldKeyDown(std::int32_t index);
    void FoldKeyUp(std::int32_t index);
    void FoldStoredText(std::int32_t index);
    void FoldContinuation(std::int32_t index);
    void FoldMouse(std::int32_t index, const JobEvent& event);
    void FoldWheelNotch(std::int32_t index);
    void FoldMove(std::int32_t index, const JobEvent& event);
    void FoldButton(std::int32_t index);

    void DodajNoviText(std::int32_t index);
    void DodajMouseEvent(std::int32_t index);
    void DodajMouseMove(std::int32_t x, std::int32_t y, std::int32_t first, std::int32_t last);
    void CloseMoveRow(std::int32_t last);

    const JobEvent& At(std::int32_t index) const { return CheckedAt(job.Events, index, "Event"); }
    KeyRow& LastKeyRow() { return CheckedAt(rows.KeyRows, KeyRowCount() - 1LL, "Keystroke row"); }
    std::int32_t KeyRowCount() const { return static_cast<std::int32_t>(rows.KeyRows.size()); }
    void JoinLastKeyRow(std::int32_t index);
    void Mark(std::int32_t index, std::int32_t type);
    KeyRow NewKeyRow(std::int32_t index) const;
    void OpenKeyRow(std::int32_t index, KeyRow row);
    void TakeCurrentChain(const WindowChain& chain);
    const WindowChain& ChainOf(const JobEvent& event) const;
    const std::string& StoredTextOf(const JobEvent& event) const;
    const TokenMemory::Entry& TokenOf(const JobEvent& event);
    bool MayPassOver(std::int64_t index, std::size_t count) const;
    bool RunsInCurrentChain(const JobEvent& event) const;
    bool SameWindow(std::int32_t a, std::int32_t b) const;

    const JobArrays& job;
    FoldedRows& rows;
    std::vector<JobEvent>* const edited;  // null: no event changes
    WindowChain CurrentChain;             // the window path that the open keystroke row runs in
    LastKind lastKind = LastKind::Unset;
    bool rowIsStored = false;  // the open keystroke row began as a stored text
    TokenMemory tokens;
    HeldKeys heldKeys;

    struct {
        bool open = false;
        std::int32_t first = 0;
        std::int32_t x = 0;  // where the run has come to
        std::int32_t y = 0;
    } moveRow;
};

void Pass::Run() {
    // The count is asked for anew each time: a box pumps.
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(job.Events.size()); ++i) FoldEvent(i);
    CloseMoveRow(static_cast<std::int32_t>(job.Events.size()) - 1);
}

void Pass::FoldEvent(std::int32_t index) {
    const JobEvent& event = At(index);
    switch (event.dwType()) {
        case platform::InputMouse:
            return FoldMouse(index, event);
        case platform::InputKeyboard:
            return FoldKey(index);
        case INPUT_TEXT:
            return FoldStoredText(index);
        case TextContinuation:
            return FoldContinuation(index);
        default:
            platform::ShowBox("Unknown dwType:" + std::to_string(event.dwType()), ProductName);
    }
}

// A key-down without a window and a key-up before all rows belong to no row, and stay in the array.
void Pass::FoldKey(std::int32_t index) {
    CloseMoveRow(index - 1);
    const JobEvent& event = At(index);
    const std::int32_t state = event.KeyState();
    const bool hasWindow = event.WindowChainIndex >= 0;
    if ((state == 0 || state == 1) && hasWindow) {
        FoldKeyDown(index);
    } else if ((state == 2 || state == 3) && !hasWindow && !rows.KeyRows.empty()) {
        FoldKeyUp(index);
    }
}

void Pass::FoldKeyDown(std::int32_t index) {
    const JobEvent& event = At(index);
    if (RunsInCurrentChain(event) && lastKind != LastKind::Wheel) {
        JoinLastKeyRow(index);
    } else {
        DodajNoviText(index);
        lastKind = LastKind::Keys;
    }
    const TokenMemory::Entry& entry = TokenOf(event);
    std::string& text = LastKeyRow().Text;
    const bool autoRepeat = entry.modifier && heldKeys.IsHeld(text, event.KeyCode() % 65536);
    if (!autoRepeat) text += entry.token;
}

// An up goes to the last row, wherever it was pressed, even with clicks in between. The up of a character has no
// token, so nothing but the row's end moves.
void Pass::FoldKeyUp(std::int32_t index) {
    LastKeyRow().Text += TokenOf(At(index)).token;
    lastKind = LastKind::Keys;
    JoinLastKeyRow(index);
}

// A text row from an earlier edit. No key-down or notch joins it: as the user edited it, those behind it were rows of
// their own, and may be for another window.
void Pass::FoldStoredText(std::int32_t index) {
    CloseMoveRow(index - 1);
    KeyRow row = NewKeyRow(index);
    row.Text = StoredTextOf(At(index));
    row.StoredLength = static_cast<std::int32_t>(row.Text.size());
    OpenKeyRow(index, std::move(row));
    rowIsStored = true;
}

void Pass::FoldContinuation(std::int32_t index) {
    if (rows.KeyRows.empty() && edited != nullptr) return Mark(index, TextContinuation);  // of a damaged job: of row 0
    JoinLastKeyRow(index);
}

void Pass::FoldMouse(std::int32_t index, const JobEvent& event) {
    if (event.dwFlags() == MoveFlags) return FoldMove(index, event);
    if (IsWheelNotch(event)) return FoldWheelNotch(index);
    if (EndsKeyRow(event)) CurrentChain.Path[0] = NoChain;
    CloseMoveRow(index - 1);
    FoldButton(index);
}

// Notches in one window join, and are kept apart from keys. A run of moves in between hides the kind of the row before
// it, so that keys and notches do join over it, until a purge has taken the moves away; a notch that joins leaves the
// run of moves open.
void Pass::FoldWheelNotch(std::int32_t index) {
    const JobEvent& event = At(index);
    const std::int32_t state = event.mouseData() >= 1 ? platform::KeyUp : 0;
    if (!RunsInCurrentChain(event) || lastKind == LastKind::Keys) {
        CloseMoveRow(index - 1);
        DodajNoviText(index);
    } else {
        JoinLastKeyRow(index);
    }
    LastKeyRow().Text += tokens.Of(WheelKey, state).token;
    lastKind = LastKind::Wheel;
}

void Pass::FoldMove(std::int32_t index, const JobEvent& event) {
    if (!moveRow.open) {
        moveRow.open = true;
        moveRow.first = index;
        lastKind = LastKind::Moves;
    }
    moveRow.x = event.dx();
    moveRow.y = event.dy();
}

// A release right behind its press in the array and at the same place makes a click of the press's row.
void Pass::FoldButton(std::int32_t index) {
    if (index == 0) return DodajMouseEvent(index);
    const JobEvent& event = At(index);
    const JobEvent& before = At(index - 1);
    if (before.dwType() == platform::InputMouse && IsPair(before.dwFlags(), event.dwFlags())) {
        lastKind = LastKind::Click;
        if (SamePlace(before, event)) {
            CheckedAt(rows.MouseRows, static_cast<long long>(rows.MouseRows.size()) - 1, "Mouse row").LastEvent = index;
            return;
        }
    }
    DodajMouseEvent(index);
}

// DodajNoviText ("add new text"): opens a keystroke row at this event.
void Pass::DodajNoviText(std::int32_t index) {
    OpenKeyRow(index, NewKeyRow(index));
}

// DodajMouseEvent ("add mouse event"): a row of this one event.
void Pass::DodajMouseEvent(std::int32_t index) {
    const JobEvent& event = At(index);
    rows.MouseRows.push_back({index, index, event.dwFlags(), event.dx(), event.dy(), event.WindowChainIndex});
}

// DodajMouseMove ("add mouse move"): a run of moves as one row, which shows where the run ended.
void Pass::DodajMouseMove(std::int32_t x, std::int32_t y, std::int32_t first, std::int32_t last) {
    rows.MouseRows.push_back({first, last, MoveFlags, x, y, At(first).WindowChainIndex});
}

void Pass::CloseMoveRow(std::int32_t last) {
    if (!moveRow.open) return;
    DodajMouseMove(moveRow.x, moveRow.y, moveRow.first, last);
    moveRow.open = false;
}

void Pass::JoinLastKeyRow(std::int32_t index) {
    LastKeyRow().LastEvent = index;
    Mark(index, TextContinuation);
}

// The event belongs to the last keystroke row. Where the events are changed, that is all that is changed about them; a
// wheel notch gets the time of a text event then, in the place of its delta.
void Pass::Mark(std::int32_t index, std::int32_t type) {
    if (edited == nullptr) return;
    JobEvent& event = CheckedAt(*edited, index, "Event");
    if (event.dwType() == platform::InputMouse) event.keyTime() = event.mouseTime();
    event.dwType() = type;
    event.StringIndex() = KeyRowCount();
}

// A head without a window leaves CurrentChain as it was.
void Pass::OpenKeyRow(std::int32_t index, KeyRow row) {
    rows.KeyRows.push_back(std::move(row));
    const JobEvent& event = At(index);
    if (event.WindowChainIndex >= 0) TakeCurrentChain(ChainOf(event));
    Mark(index, INPUT_TEXT);
    heldKeys.StartRow();
    rowIsStored = false;
}

KeyRow Pass::NewKeyRow(std::int32_t index) const {
    const JobEvent& event = At(index);
    KeyRow row;
    row.FirstEvent = row.LastEvent = index;
    row.WindowChainIndex = event.WindowChainIndex;
    if (event.WindowChainIndex >= 0) {
        const WindowChain& chain = ChainOf(event);
        row.LeafWindow = chain.LeafWindow;
        row.Depth = chain.Depth;
    }
    return row;
}

// Chains are long blocks and most of them are short, so no more is read than will be compared.
void Pass::TakeCurrentChain(const WindowChain& chain) {
    CurrentChain.Depth = chain.Depth;
    CurrentChain.Path[0] = chain.Path[0];
    std::copy_n(chain.Path.begin(), ComparedLevelsOf(chain), CurrentChain.Path.begin());
}

// True for an index that leads nowhere, in the editor.
bool Pass::MayPassOver(std::int64_t index, std::size_t count) const {
    return edited != nullptr && (index < 0 || index >= static_cast<std::int64_t>(count));
}

const WindowChain& Pass::ChainOf(const JobEvent& event) const {
    static const WindowChain unknown{0, {}, -1};
    if (MayPassOver(event.WindowChainIndex, job.Chains.size())) return unknown;
    return CheckedAt(job.Chains, event.WindowChainIndex, "Window chain");
}

const std::string& Pass::StoredTextOf(const JobEvent& event) const {
    static const std::string unknown;
    const std::int64_t index = event.StringIndex() - 1LL;
    return MayPassOver(index, job.Strings.size()) ? unknown : CheckedAt(job.Strings, index, "Text row");
}

const TokenMemory::Entry& Pass::TokenOf(const JobEvent& event) {
    static const TokenMemory::Entry unknown;
    const std::int32_t vk = event.KeyCode() % 65536;
    return MayPassOver(vk, KeyNameCount) ? unknown : tokens.Of(vk, event.KeyState());
}

// Whether the event's window is the open row's, by what a person would call the same window. Unlike the replay's
// comparison, placement doesn't count: a window that was moved between two keys stays one row.
bool Pass::RunsInCurrentChain(const JobEvent& event) const {
    if (rowIsStored || event.WindowChainIndex < 0 || CurrentChain.Path[0] == NoChain) return false;
    const WindowChain& chain = ChainOf(event);
    if (chain.Depth != CurrentChain.Depth) return false;
    return std::equal(chain.Path.begin(), chain.Path.begin() + ComparedLevelsOf(chain), CurrentChain.Path.begin(),
                      [this](std::int32_t a, std::int32_t b) { return SameWindow(a, b); });
}

bool Pass::SameWindow(std::int32_t a, std::int32_t b) const {
    if (MayPassOver(a, job.Windows.size()) || MayPassOver(b, job.Windows.size())) return a == b;
    const WindowSignature& first = CheckedAt(job.Windows, a, "Window");
    const WindowSignature& second = CheckedAt(job.Windows, b, "Window");
    return a == b || (first.ControlId == second.ControlId && first.ClassName == second.ClassName &&
                      first.Caption == second.Caption);
}

}  // namespace

void FoldEvents(const JobArrays& job, FoldedRows& rows, std::vector<JobEvent>* edited) {
    Pass(job, rows, edited).Run();
}

void PassOverUnknownEvents(std::span<JobEvent> events) {
    constexpr std::int32_t neitherDownNorUp = 16;
    for (JobEvent& event : events) {
        const std::int32_t type = event.dwType();
        if (type == platform::InputMouse || type == platform::InputKeyboard) continue;
        if (type == INPUT_TEXT || type == TextContinuation) continue;
        const std::int32_t time = event.time();
        event = {};
        event.dwType() = platform::InputKeyboard;
        event.KeyCode() = type;
        event.KeyState() = neitherDownNorUp;
        event.time() = time;
    }
}

bool KeyRowComesNext(const FoldedRows& rows, std::size_t keyRowsDone, std::size_t mouseRowsDone) {
    if (mouseRowsDone == rows.MouseRows.size()) return true;
    return keyRowsDone < rows.KeyRows.size() &&
           rows.KeyRows[keyRowsDone].FirstEvent < rows.MouseRows[mouseRowsDone].FirstEvent;
}

void BuildRowOrder(FoldedRows& rows) {
    const std::size_t count = rows.KeyRows.size() + rows.MouseRows.size();
    std::size_t keyRow = 0;
    std::size_t mouseRow = 0;
    std::int32_t number = 0;
    for (std::vector<std::int32_t>* column : {&rows.RowIndex, &rows.RowKind, &rows.RowNumber}) {
        column->clear();
        column->reserve(count);
    }
    while (keyRow + mouseRow < count) {
        const bool isKeyRow = KeyRowComesNext(rows, keyRow, mouseRow);
        if (isKeyRow || rows.MouseRows[mouseRow].Flags != MoveFlags) ++number;
        rows.RowKind.push_back(isKeyRow ? KeyRowKind : MouseRowKind);
        rows.RowIndex.push_back(static_cast<std::int32_t>(isKeyRow ? keyRow++ : mouseRow++));
        rows.RowNumber.push_back(number);
    }
}

// Every move lies in a run of moves, so no more is looked at than the runs that reach into keystroke rows.
std::vector<std::size_t> HiddenMoves(const FoldedRows& rows, const std::vector<JobEvent>& events) {
    std::vector<std::size_t> hidden;
    auto nextRow = rows.MouseRows.begin();
    for (const KeyRow& keys : rows.KeyRows) {
        while (nextRow != rows.MouseRows.end() && nextRow->LastEvent <= keys.FirstEvent) ++nextRow;
        for (auto row = nextRow; row != rows.MouseRows.end() && row->FirstEvent < keys.LastEvent; ++row) {
            if (row->Flags != MoveFlags) continue;
            const std::int32_t end = std::min(row->LastEvent + 1, keys.LastEvent);
            for (std::int32_t i = std::max(row->FirstEvent, keys.FirstEvent + 1); i < end; ++i) {
                if (IsMove(CheckedAt(events, i, "Event"))) hidden.push_back(static_cast<std::size_t>(i));
            }
        }
    }
    return hidden;
}

void ClearRows(FoldedRows& rows) {
    rows.MouseRows.clear();
    rows.KeyRows.clear();
    rows.RowIndex.clear();
    rows.RowKind.clear();
    rows.RowNumber.clear();
}

const WindowSignature* FindOutermostWindow(const JobArrays& job, std::int32_t chainIndex) {
    const auto leads = [](std::int32_t index, std::size_t count) {
        return index >= 0 && static_cast<std::size_t>(index) < count;
    };
    if (!leads(chainIndex, job.Chains.size())) return nullptr;
    const WindowChain& chain = job.Chains[static_cast<std::size_t>(chainIndex)];
    if (!leads(chain.Depth, chain.Path.size())) return nullptr;
    const std::int32_t window = chain.Path[static_cast<std::size_t>(chain.Depth)];
    return leads(window, job.Windows.size()) ? &job.Windows[static_cast<std::size_t>(window)] : nullptr;
}

const WindowSignature& OutermostWindow(const JobArrays& job, std::int32_t chainIndex) {
    const WindowChain& chain = CheckedAt(job.Chains, chainIndex, "Window chain");
    return CheckedAt(job.Windows, CheckedAt(chain.Path, chain.Depth, "Level of a window chain"), "Window");
}

bool IsDesktop(const WindowSignature& window) {
    return window.ClassName == "Progman" && window.Caption == "Program Manager";
}
