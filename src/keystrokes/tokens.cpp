#include <algorithm>

#include "base/product.h"
#include "keystrokes/notation.h"
#include "keystrokes/parsing.h"
#include "platform/boxes.h"
#include "platform/text.h"

namespace {

bool IsDown(int keyState) {
    return keyState == 0 || keyState == 1;
}

bool IsUp(int keyState) {
    return keyState == 2 || keyState == 3;
}

// The first token for which `wanted(index, start, end)` holds.
template <class Condition>
Token FirstToken(const std::string& text, Condition wanted) {
    std::size_t start = 0;
    for (int index = 0; start < text.size(); ++index) {
        const std::size_t end = TokenEnd(text, start);
        if (end == std::string::npos) return {};
        if (wanted(index, start, end)) {
            return {text.substr(start, end - start), index, static_cast<int>(start), static_cast<int>(end - start)};
        }
        start = end;
    }
    return {};
}

// The action of the word behind the blank. Any other word leaves the action alone: a stored text with such a slip goes
// on with what the token before it did.
void ParseWord(const std::string& token, std::size_t blank, int& action, BadWords badWords) {
    const std::string word = token.substr(blank + 1, token.size() - blank - 2);
    if (word == "DOWN") {
        action = ActionDown;
    } else if (word == "UP") {
        action = ActionUp;
    } else if (badWords == BadWords::Told) {
        platform::ShowBox("nije ni up ni down, event_str: " + token, ProductName);
    }
}

}  // namespace

std::size_t TokenEnd(std::string_view text, std::size_t start) {
    if (text[start] != '{') return start + 1;
    const std::size_t closing = text.find('}', start);
    return closing == std::string_view::npos ? closing : closing + 1;
}

int TokenCount(const std::string& text) {
    int count = 0;
    for (std::size_t start = 0; start < text.size(); ++count) {
        start = TokenEnd(text, start);
        if (start == std::string::npos) return -1;
    }
    return count;
}

std::optional<std::vector<std::string>> SplitTokens(const std::string& text) {
    std::vector<std::string> tokens;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = TokenEnd(text, start);
        if (end == std::string::npos) return std::nullopt;
        tokens.push_back(text.substr(start, end - start));
        start = end;
    }
    return tokens;
}

Token TokenAt(const std::string& text, int index) {
    return FirstToken(text, [index](int i, std::size_t, std::size_t) { return i == index; });
}

Token TokenUnder(const std::string& text, int position) {
    if (position < 0 || text.empty()) return {};
    const std::size_t covered = std::min(static_cast<std::size_t>(position), text.size() - 1);
    return FirstToken(text, [covered](int, std::size_t, std::size_t end) { return covered < end; });
}

void ParseToken(const std::string& token, int& vk, int& action, KeyNameMemory& names, BadWords badWords) {
    if (token.empty() || token == std::string(1, '\0')) {
        vk = KeyCodeUnknown;
        action = ActionNone;
        return;
    }
    const std::string folded = token[0] == '{' ? platform::UpperCase(token) : token;
    const std::size_t blank = folded.find(' ');
    if (folded.size() < 2 || blank == std::string::npos) {
        vk = names.CodeOf(folded);
        action = ActionPress;
        return;
    }
    vk = names.CodeOf(folded.substr(0, blank) + "}");
    ParseWord(folded, blank, action, badWords);
}

void ParseToken(const std::string& token, int& vk, int& action) {
    KeyNameMemory names;
    ParseToken(token, vk, action, names);
}

std::string EventToToken(int vk, int keyState) {
    const std::string name = KeyNameFromCode(vk);
    // A character stands for the whole press of its key, so it is shown once, on the down.
    if (name[0] != '{') return IsDown(keyState) ? name : std::string();
    const std::string opened = name.substr(0, name.size() - 1);
    if (IsDown(keyState)) return opened + " DOWN}";
    if (IsUp(keyState)) return opened + " UP}";
    return {};
}

bool KeyIsHeld(const std::string& text, int fromIndex, int vk) {
    const auto tokens = SplitTokens(text);
    if (!tokens) return false;
    KeyNameMemory names;
    for (int i = std::min(fromIndex, static_cast<int>(tokens->size()) - 1); i >= 0; --i) {
        int tokenKey = KeyCodeUnknown;
        int action = ActionNone;
        ParseToken((*tokens)[static_cast<std::size_t>(i)], tokenKey, action, names);
        if (tokenKey == vk) return action == ActionDown;
    }
    return false;
}
