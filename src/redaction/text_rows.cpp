#include "redaction/text_rows.h"

#include <algorithm>
#include <numeric>

#include "folding/fold.h"

namespace {

// The editor's fold: moves inside a row of keys are dropped, and all is folded again.
class EditorFold {
public:
    explicit EditorFold(const Job& foldedJob) : job(foldedJob), places(job.Events.size()) {
        std::iota(places.begin(), places.end(), std::size_t{0});
        do {
            Fold();
        } while (DropHiddenMoves());
        BuildRowOrder(rows);
    }

    TextRows Take(TokenReader& reader) const;

private:
    void Fold();
    bool DropHiddenMoves();
    TextRow RowOf(const KeyRow& row, TokenReader& reader) const;
    std::int32_t PlaceOf(std::int32_t event) const {
        return static_cast<std::int32_t>(places[static_cast<std::size_t>(event)]);
    }

    const Job& job;
    std::vector<std::size_t> places;  // of the events that are left
    std::vector<JobEvent> events;     // as the fold has changed them
    FoldedRows rows;
};

void EditorFold::Fold() {
    ClearRows(rows);
    events.clear();
    events.reserve(places.size());
    for (const std::size_t place : places) events.push_back(job.Events[place]);
    PassOverUnknownEvents(events);
    FoldEvents({events, job.Strings, job.Windows, job.Chains}, rows, &events);
}

bool EditorFold::DropHiddenMoves() {
    const std::vector<std::size_t> hidden = HiddenMoves(rows, events);
    if (hidden.empty()) return false;
    for (const std::size_t event : hidden) places[event] = job.Events.size();
    places.erase(std::remove(places.begin(), places.end(), job.Events.size()), places.end());
    return true;
}

bool IsStored(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
}

TextRow EditorFold::RowOf(const KeyRow& row, TokenReader& reader) const {
    TextRow found;
    found.head = PlaceOf(row.FirstEvent);
    found.last = PlaceOf(row.LastEvent);
    found.chain = row.WindowChainIndex;
    found.tokens = reader.Read(row.Text);
    found.isTyped = std::any_of(found.tokens.begin(), found.tokens.end(), IsTyped);
    return found;
}

TextRows EditorFold::Take(TokenReader& reader) const {
    TextRows found;
    for (const KeyRow& row : rows.KeyRows) found.rows.push_back(RowOf(row, reader));
    for (std::size_t i = 0; i < rows.RowIndex.size(); ++i) {
        if (rows.RowKind[i] == KeyRowKind) {
            found.rows[static_cast<std::size_t>(rows.RowIndex[i])].number = rows.RowNumber[i];
        }
    }
    found.rowOf.assign(job.Events.size(), TextRows::NoRow);
    for (std::size_t i = 0; i < events.size(); ++i) {
        const JobEvent& was = job.Events[places[i]];
        const std::int32_t row = IsStored(events[i]) ? events[i].StringIndex() - 1 : TextRows::NoRow;
        found.rowOf[places[i]] = row;
        if (row == TextRows::NoRow) continue;
        // Keys without a token, and a stored text without any that has old keys in its events.
        const bool isOddKey = was.dwType() == platform::InputKeyboard && (was.KeyState() & platform::KeyUp) == 0 &&
                              !IsModifier(was.KeyCode() & 0xFFFF);
        TextRow& textRow = found.rows[static_cast<std::size_t>(row)];
        const bool isOldKey = IsStored(was) && was.KeyCode() != 0 && textRow.tokens.empty();
        textRow.isTyped = textRow.isTyped || isOddKey || isOldKey;
    }
    found.isHidden.assign(job.Events.size(), true);
    for (const std::size_t place : places) found.isHidden[place] = false;
    return found;
}

}  // namespace

std::vector<TextToken> TokenReader::Read(const std::string& text) {
    const auto tokens = SplitTokens(text);
    if (!tokens) return {{text, KeyCodeUnknown, ActionNone}};
    std::vector<TextToken> read;
    for (const std::string& token : *tokens) {
        TextToken& one = read.emplace_back();
        one.text = token;
        ParseToken(token, one.vk, one.action, names, BadWords::PassedOver);
    }
    return read;
}

std::string TokenText(int vk, int action) {
    const std::string_view named = vk >= 0 && vk < KeyNameCount ? KeyNames[static_cast<std::size_t>(vk)] : "";
    const std::string name = named.empty() ? std::to_string(vk) : std::string(named);
    return "{" + name + (action == ActionUp ? " UP}" : " DOWN}");
}

bool IsModifier(int vk) {
    return (vk >= 16 && vk <= 18) || (vk >= 160 && vk <= 165) || vk == 91 || vk == 92;
}

bool IsTyped(const TextToken& token) {
    return token.vk != WheelKey && token.action != ActionUp && !IsModifier(token.vk);
}

TextRows TextRowsOf(const Job& job, TokenReader& reader) {
    return EditorFold(job).Take(reader);
}
