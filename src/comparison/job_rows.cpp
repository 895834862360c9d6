#include "comparison/job_rows.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <limits>
#include <span>
#include <string_view>
#include <utility>

#include "dictionary/dictionary.h"
#include "platform/types.h"

namespace {

constexpr std::uint64_t Typing = ~0ULL;  // no action of the mouse has such flags

// A step of a hash. The two arguments count differently, so that equal ones do not cancel out.
std::uint64_t Mixed(std::uint64_t hash, std::uint64_t value) {
    value = std::rotl(value * 0x87C37B91114253D5U, 31) * 0x4CF5AD432745937FU;
    return std::rotl(hash ^ value, 27) * 5 + 0x52DCE729U;
}

// The same for events, of which there are a million: what a row's come to is mixed at its end.
std::uint64_t Stirred(std::uint64_t hash, std::uint64_t value) {
    return (std::rotl(hash, 23) ^ value) * 0x9E3779B97F4A7C15U + 1;
}

std::uint64_t Bits(std::int64_t value) {
    return static_cast<std::uint64_t>(value);
}

std::uint64_t Pair(std::int32_t a, std::int32_t b) {
    return Bits(a) << 32 | (Bits(b) & 0xFFFFFFFFU);
}

std::uint64_t HashOf(std::string_view text) {
    return std::hash<std::string_view>()(text);
}

std::uint64_t HashOf(const WindowSignature& window) {
    return Mixed(Mixed(HashOf(window.ClassName), HashOf(window.Caption)), Bits(window.ControlId));
}

// The windows of a job by number: hashes of what they say, and the corner that places are counted from.
class Windows {
public:
    explicit Windows(const JobArrays& jobArrays) : arrays(jobArrays) {
        for (const WindowSignature& window : arrays.Windows) windows.push_back(HashOf(window));
        for (std::size_t chain = 0; chain < arrays.Chains.size(); ++chain) {
            chains.push_back(HashOf(arrays.Chains[chain]));
            corners.push_back(CornerOf(FindOutermostWindow(arrays, static_cast<std::int32_t>(chain))));
        }
    }

    // A chain that leads nowhere counts by its index.
    std::uint64_t OfChain(std::int32_t chain) const {
        if (chain < 0) return 0;
        const auto index = static_cast<std::size_t>(chain);
        return index < chains.size() ? chains[index] : Bits(chain);
    }

    // Of a window in its normal place; of all others, that of the screen.
    platform::Point CornerOf(std::int32_t chain) const {
        const auto index = static_cast<std::size_t>(chain);
        return chain >= 0 && index < corners.size() ? corners[index] : platform::Point{};
    }

private:
    static platform::Point CornerOf(const WindowSignature* top) {
        if (top == nullptr || top->Placement.showCmd != platform::ShowNormal) return {};
        return {top->Placement.rcNormalPosition.left, top->Placement.rcNormalPosition.top};
    }
    std::uint64_t HashOf(const WindowSignature& window) const { return ::HashOf(window); }
    std::uint64_t HashOf(const WindowChain& chain) const {
        std::uint64_t hash = 1;
        for (std::int32_t level = 0; level <= chain.Depth && level < WindowChain::MaximumLevels; ++level) {
            const std::int32_t window = chain.Path[static_cast<std::size_t>(level)];
            const bool exists = window >= 0 && static_cast<std::size_t>(window) < windows.size();
            hash = Mixed(hash, exists ? windows[static_cast<std::size_t>(window)] : Bits(window));
        }
        return hash;
    }

    const JobArrays arrays;
    std::vector<std::uint64_t> windows;
    std::vector<std::uint64_t> chains;
    std::vector<platform::Point> corners;  // by chain
};

std::string_view StoredTextOf(const KeyRow& row) {
    return std::string_view(row.Text).substr(0, static_cast<std::size_t>(row.StoredLength));
}

// Reads every event once, into the row that it belongs to.
class MeaningReader {
public:
    MeaningReader(const EditState& foldedState, std::vector<RowMeaning>& rowMeanings, std::vector<RowTimes>& rowTimes)
        : state(foldedState),
          windows({state.PristineEvents, state.Strings, state.Windows, state.Chains}),
          meanings(rowMeanings),
          times(rowTimes),
          corners(rowMeanings.size()) {}

    void Run();

private:
    static constexpr std::size_t NoRow = std::numeric_limits<std::size_t>::max();

    bool IsMouseRow(std::size_t row) const;
    std::int32_t FirstEventOf(std::size_t row) const;
    std::int32_t LastEventOf(std::size_t row) const;
    void Begin(std::size_t row);
    void GoTo(std::size_t row);
    void Keep();
    void Add(const JobEvent& event);
    std::size_t RowOf(const JobEvent& event, std::size_t index) const;

    const EditState& state;
    const Windows windows;
    std::vector<RowMeaning>& meanings;
    std::vector<RowTimes>& times;
    std::vector<platform::Point> corners;  // from which the places of a row count
    std::size_t begun = 0;                 // as many rows
    std::size_t mouseRow = 0;              // the last of them that is one
    std::size_t keyRow = NoRow;            // likewise

    // Of the row to which the last event belonged, as far as it is read: events come in runs.
    struct {
        std::size_t row = NoRow;
        std::int64_t start = 0;
        platform::Point corner;
        std::uint64_t content = 0;
        std::uint64_t timing = 0;
    } current;
};

void MeaningReader::Run() {
    constexpr std::int32_t never = std::numeric_limits<std::int32_t>::max();
    if (meanings.empty()) return;
    std::int32_t nextBegins = FirstEventOf(0);
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(state.PristineEvents.size()); ++i) {
        while (nextBegins <= i) {
            Begin(begun++);
            nextBegins = begun < meanings.size() ? FirstEventOf(begun) : never;
        }
        const auto index = static_cast<std::size_t>(i);
        const JobEvent& event = state.PristineEvents[index];
        GoTo(RowOf(event, index));
        Add(event);
    }
    Keep();
}

inline void MeaningReader::GoTo(std::size_t row) {
    if (row == current.row) return;
    Keep();
    current = {row, times[row].first, corners[row], meanings[row].content, meanings[row].timing};
}

void MeaningReader::Keep() {
    if (current.row == NoRow) return;
    meanings[current.row].content = current.content;
    meanings[current.row].timing = current.timing;
    current.row = NoRow;
}

bool MeaningReader::IsMouseRow(std::size_t row) const {
    return state.RowKind[row] == MouseRowKind;
}

std::int32_t MeaningReader::FirstEventOf(std::size_t row) const {
    const auto index = static_cast<std::size_t>(state.RowIndex[row]);
    return IsMouseRow(row) ? state.MouseRows[index].FirstEvent : state.KeyRows[index].FirstEvent;
}

std::int32_t MeaningReader::LastEventOf(std::size_t row) const {
    const auto index = static_cast<std::size_t>(state.RowIndex[row]);
    return IsMouseRow(row) ? state.MouseRows[index].LastEvent : state.KeyRows[index].LastEvent;
}

// Text is always that of the last keystroke row, and what is in no row goes to the one in front of it. Only where both
// are not the same row does the folded event have to tell, which is far away.
inline std::size_t MeaningReader::RowOf(const JobEvent& event, std::size_t index) const {
    if (event.dwType() == platform::InputMouse) return IsWheelNotch(event) ? keyRow : mouseRow;
    if (begun == 0) return 0;
    if (keyRow == NoRow || keyRow == begun - 1) return begun - 1;
    const std::int32_t type = state.EditEvents[index].dwType();
    return type == INPUT_TEXT || type == TextContinuation ? keyRow : begun - 1;
}

void MeaningReader::Begin(std::size_t row) {
    Keep();
    const JobEvent& event = state.PristineEvents[static_cast<std::size_t>(FirstEventOf(row))];
    times[row] = {event.time(), state.PristineEvents[static_cast<std::size_t>(LastEventOf(row))].time()};
    corners[row] = windows.CornerOf(event.WindowChainIndex);
    RowMeaning& meaning = meanings[row];
    const auto index = static_cast<std::size_t>(state.RowIndex[row]);
    if (IsMouseRow(row)) {
        mouseRow = row;
        meaning.action = Bits(state.MouseRows[index].Flags);
    } else {
        keyRow = row;
        meaning.action = Typing;
        if (state.KeyRows[index].StoredLength > 0) meaning.content = HashOf(StoredTextOf(state.KeyRows[index]));
    }
    meaning.window = windows.OfChain(event.WindowChainIndex);
    if (event.WindowChainIndex >= 0) meaning.waiting = Pair(event.WaitForWindow, event.IfNoWindow);
}

void MeaningReader::Add(const JobEvent& event) {
    current.timing = Stirred(current.timing, Bits(event.time() - current.start));
    switch (event.dwType()) {
        case platform::InputMouse:
            current.content =
                Stirred(Stirred(current.content, Pair(event.dx() - current.corner.x, event.dy() - current.corner.y)),
                        Pair(event.mouseData(), event.dwFlags()));
            return;
        case platform::InputKeyboard:
            current.content = Stirred(current.content, Pair(event.KeyCode() % 65536, event.KeyState()));
            return;
        default:
            return;
    }
}

std::uint64_t NumberOf(const RowMeaning& meaning) {
    return Mixed(Mixed(Mixed(Mixed(meaning.action, meaning.window), meaning.content), meaning.timing), meaning.waiting);
}

// A copy, with the unknown events passed over in both. Piece by piece, while the piece is in the processor's cache.
std::vector<JobEvent> KnownOnesOf(std::span<JobEvent> events) {
    constexpr std::size_t pieceLength = 256;
    std::vector<JobEvent> copy;
    copy.reserve(events.size());
    while (!events.empty()) {
        const auto piece = events.first(std::min(pieceLength, events.size()));
        PassOverUnknownEvents(piece);
        copy.insert(copy.end(), piece.begin(), piece.end());
        events = events.subspan(piece.size());
    }
    return copy;
}

// Puts a job in the place of the one that is open, as long as it lives.
class Borrowed {
public:
    explicit Borrowed(EditState& aside) : other(aside) { std::swap(editState, other); }
    ~Borrowed() { std::swap(editState, other); }
    Borrowed(const Borrowed&) = delete;
    Borrowed& operator=(const Borrowed&) = delete;

private:
    EditState& other;
};

}  // namespace

JobRows::JobRows(Job job) {
    state.header = job;
    state.PristineEvents = std::move(job.Events);
    state.EditEvents = KnownOnesOf(state.PristineEvents);
    state.Strings = std::move(job.Strings);
    state.Windows = std::move(job.Windows);
    state.Chains = std::move(job.Chains);
    {
        const Borrowed borrowed(state);
        PopuniListu({}, true);
    }
    ReadMeanings();
}

void JobRows::ReadMeanings() {
    meanings.resize(state.RowIndex.size());
    times.resize(meanings.size());
    MeaningReader(state, meanings, times).Run();
    numbers.reserve(meanings.size());
    for (const RowMeaning& meaning : meanings) numbers.push_back(NumberOf(meaning));
}

GridColumns JobRows::ColumnsOf(std::int32_t row) {
    Translate("Job Editor");  // a lookup sets the words of the rows
    const Borrowed borrowed(state);
    return RowColumns(row);
}
