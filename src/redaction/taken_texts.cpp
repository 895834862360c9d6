#include "redaction/taken_texts.h"

#include <algorithm>

#include "platform/text.h"

namespace {

constexpr std::size_t Shortest = 3;  // shorter ones stand everywhere
constexpr int Backspace = 8;

// Of the characters between two other keys. A modifier goes with the character, and a backspace takes one back.
std::vector<std::string> PiecesOf(const std::vector<TextToken>& tokens) {
    std::vector<std::string> pieces(1);
    for (const TextToken& token : tokens) {
        std::string& piece = pieces.back();
        if (token.text.size() == 1) {
            piece += token.text;
        } else if (token.vk == Backspace && token.action != ActionUp) {
            piece.resize(piece.size() - std::min<std::size_t>(piece.size(), 1));
        } else if (token.vk != Backspace && IsTyped(token)) {
            pieces.emplace_back();
        }
    }
    for (std::string& piece : pieces) piece = platform::LowerCase(piece);
    return pieces;
}

}  // namespace

void TakenTexts::Add(const std::vector<TextToken>& tokens) {
    for (std::string& piece : PiecesOf(tokens)) {
        if (piece.size() < Shortest) continue;
        std::vector<std::string>& known = byBeginning[piece.substr(0, Shortest)];
        if (std::find(known.begin(), known.end(), piece) == known.end()) known.push_back(std::move(piece));
    }
}

bool TakenTexts::StandIn(std::string_view text) const {
    const std::string lower = platform::LowerCase(text);
    for (std::size_t at = 0; at + Shortest <= lower.size(); ++at) {
        const auto found = byBeginning.find(lower.substr(at, Shortest));
        if (found == byBeginning.end()) continue;
        const std::string_view rest = std::string_view(lower).substr(at);
        const auto standsHere = [rest](const std::string& piece) { return rest.starts_with(piece); };
        if (std::any_of(found->second.begin(), found->second.end(), standsHere)) return true;
    }
    return false;
}

bool TakenTexts::StandIn(const std::vector<TextToken>& tokens) const {
    const std::vector<std::string> pieces = PiecesOf(tokens);
    return std::any_of(pieces.begin(), pieces.end(), [this](const std::string& piece) { return StandIn(piece); });
}
