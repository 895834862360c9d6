#include "folding/held_keys.h"

void HeldKeys::StartRow() {
    read = 0;
    held.fill(false);
}

bool HeldKeys::IsHeld(const std::string& text, int vk) {
    // No token is the last one of a text with an open "{", so no key counts as held there.
    return ReadOn(text) && vk >= 0 && vk < KeyNameCount && held[static_cast<std::size_t>(vk)];
}

// False when a "{" is not closed (yet: a stored text may lack the "}" that comes with the next key).
bool HeldKeys::ReadOn(const std::string& text) {
    while ((read = text.find('{', read)) != std::string::npos) {
        const std::size_t closing = text.find('}', read);
        if (closing == std::string::npos) return false;
        const Meaning& meaning = MeaningOf(std::string_view(text).substr(read, closing + 1 - read));
        if (meaning.vk >= 0) held[static_cast<std::size_t>(meaning.vk)] = meaning.action == ActionDown;
        read = closing + 1;
    }
    read = text.size();
    return true;
}

const HeldKeys::Meaning& HeldKeys::MeaningOf(std::string_view token) {
    auto known = meanings.find(token);
    if (known == meanings.end()) {
        Meaning meaning;
        ParseToken(std::string(token), meaning.vk, meaning.action);
        known = meanings.emplace(token, meaning).first;
    }
    return known->second;
}
