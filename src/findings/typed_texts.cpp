#include "findings/typed_texts.h"

#include "platform/input.h"

namespace {

constexpr int NoWord = -100;  // the action of a token whose word has no meaning

bool CanBeSent(const TypedKey& key) {
    if (key.vk == KeyCodeUnknown || key.action == ActionNone || key.action == NoWord) return false;
    return key.vk == WheelKey || platform::ScanCodeOf(key.vk) >= 1;
}

bool IsForeignLetter(const std::string& token) {
    return token.size() == 1 && static_cast<unsigned char>(token.front()) >= 0x80;
}

}  // namespace

const TypedText& TypedTexts::Of(std::int32_t stringIndex) {
    Entry& entry = known[static_cast<std::size_t>(stringIndex) - 1];
    if (!entry.read) entry = {true, Read(strings[static_cast<std::size_t>(stringIndex) - 1])};
    return entry.text;
}

TypedText TypedTexts::Read(const std::string& text) {
    TypedText read;
    const auto tokens = SplitTokens(text);
    read.unclosed = !tokens;
    if (!tokens) return read;
    for (const std::string& token : *tokens) {
        TypedKey key{KeyCodeUnknown, NoWord};
        ParseToken(token, key.vk, key.action, names, BadWords::PassedOver);
        if (!CanBeSent(key)) {
            if (anyLetterWillDo && IsForeignLetter(token)) continue;
            read.keys.clear();
            read.badToken = token;
            return read;
        }
        read.keys.push_back(key);
    }
    return read;
}
