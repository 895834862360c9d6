#include "redaction/text_rows.h"

#include <algorithm>

#include "folding/editor_fold.h"

namespace {

bool IsStored(const JobEvent& event) {
    return event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation;
}

TextRow ReadRow(const KeyRow& row, const EditorFold& fold, TokenReader& reader) {
    TextRow found;
    found.head = fold.PlaceOf(row.FirstEvent);
    found.last = fold.PlaceOf(row.LastEvent);
    found.chain = row.WindowChainIndex;
    found.tokens = reader.Read(row.Text);
    found.isTyped = std::any_of(found.tokens.begin(), found.tokens.end(), IsTyped);
    return found;
}

// Whether an event of a row of keys has typed something that its tokens do not tell: a key without one, and a stored
// text without any that has old keys in its events.
bool HasTypedUntold(const JobEvent& event, const TextRow& row) {
    if (IsStored(event)) return event.KeyCode() != 0 && row.tokens.empty();
    return event.dwType() == platform::InputKeyboard && (event.KeyState() & platform::KeyUp) == 0 &&
           !IsModifier(event.KeyCode() & 0xFFFF);
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
    const EditorFold fold(job);
    const FoldedRows& rows = fold.Rows();
    TextRows found;
    for (const KeyRow& row : rows.KeyRows) found.rows.push_back(ReadRow(row, fold, reader));
    for (std::size_t i = 0; i < rows.RowIndex.size(); ++i) {
        if (rows.RowKind[i] == KeyRowKind) {
            found.rows[static_cast<std::size_t>(rows.RowIndex[i])].number = rows.RowNumber[i];
        }
    }
    found.rowOf.assign(job.Events.size(), TextRows::NoRow);
    found.isHidden.assign(job.Events.size(), true);
    std::int32_t index = 0;
    for (const JobEvent& event : fold.ChangedEvents()) {
        const auto place = static_cast<std::size_t>(fold.PlaceOf(index++));
        found.isHidden[place] = false;
        const std::int32_t row = IsStored(event) ? event.StringIndex() - 1 : TextRows::NoRow;
        found.rowOf[place] = row;
        if (row == TextRows::NoRow) continue;
        TextRow& textRow = found.rows[static_cast<std::size_t>(row)];
        textRow.isTyped = textRow.isTyped || HasTypedUntold(job.Events[place], textRow);
    }
    return found;
}
