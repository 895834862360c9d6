#include "keystrokes/notation.h"
#include "keystrokes/parsing.h"

namespace {

struct Meaning {
    std::string token;
    int vk = 0;
    int action = 0;
};

// Each token is parsed once, so that a bad one shows its box once.
std::vector<Meaning> ParseAll(std::vector<std::string> tokens, KeyNameMemory& names, BadWords badWords) {
    std::vector<Meaning> meanings;
    Meaning meaning;
    for (std::string& token : tokens) {
        ParseToken(token, meaning.vk, meaning.action, names, badWords);
        meaning.token = std::move(token);
        meanings.push_back(meaning);
    }
    return meanings;
}

// The wheel is never folded: a turn back and a turn forth are two turns.
bool IsPress(const Meaning& first, const Meaning& second) {
    return first.vk >= 0 && first.vk != WheelKey && first.vk == second.vk && first.action == ActionDown &&
           second.action == ActionUp;
}

std::string WithoutBraces(const std::string& name) {
    return name.front() == '{' ? name.substr(1, name.size() - 2) : name;
}

std::string Written(const Meaning& meaning, KeyNameMemory& names) {
    if (meaning.vk < 0) return meaning.token;
    const std::string& name = names.NameOf(meaning.vk);
    if (meaning.action == ActionPress) return name;
    return "{" + WithoutBraces(name) + (meaning.action == ActionDown ? " DOWN}" : " UP}");
}

}  // namespace

std::string ReduceKeystrokes(const std::string& text, BadWords badWords) {
    auto tokens = SplitTokens(text);
    if (!tokens) return text;
    KeyNameMemory names;
    const std::vector<Meaning> meanings = ParseAll(*std::move(tokens), names, badWords);
    std::string reduced;
    for (std::size_t i = 0; i < meanings.size(); ++i) {
        if (i + 1 < meanings.size() && IsPress(meanings[i], meanings[i + 1])) {
            reduced += names.NameOf(meanings[i].vk);
            ++i;  // the up is part of the press
        } else {
            reduced += Written(meanings[i], names);
        }
    }
    return reduced;
}
