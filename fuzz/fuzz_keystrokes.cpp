// Any text at all through the keystroke notation: nothing crashes, the tokens cover the text without gap or overlap,
// and a text that compiles still does when it is reduced.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/runtime_failure.h"
#include "fuzz/require.h"
#include "keystrokes/notation.h"

namespace {

void CheckTokensCover(const std::string& text, int count) {
    int start = 0;
    for (int i = 0; i < count; ++i) {
        const Token token = TokenAt(text, i);
        Require(token.index == i && token.start == start && token.length > 0, "tokens stand one behind the other");
        Require(TokenUnder(text, start).index == i && TokenUnder(text, start + token.length - 1).index == i,
                "a position leads to its token");
        start += token.length;
    }
    Require(start == static_cast<int>(text.size()) && TokenAt(text, count).index == -1, "the tokens end with the text");
}

int Compile(const std::string& text, std::vector<platform::InputRecord>& records) {
    std::vector<bool> extended;
    std::string message;
    const int result = CompileKeystrokes(text, records, extended, message);
    Require(records.size() == extended.size() && !message.empty(), "each record has its flag, each result its message");
    return result;
}

bool OpenBraceFails(const std::string& text) {
    std::vector<platform::InputRecord> records;
    try {
        Compile(text, records);
    } catch (const RuntimeFailure& failure) {
        return failure.Kind() == FailureKind::Range && records.empty();
    }
    return false;
}

void CheckClosedText(const std::string& text, int count) {
    CheckTokensCover(text, count);
    std::vector<platform::InputRecord> records;
    const int result = Compile(text, records);
    Require(result > 0 ? result == count : -result < count || count == 0,
            "the result is the count, or minus a token's index");
    KeyIsHeld(text, count - 1, 160);
    const std::string reduced = ReduceKeystrokes(text);
    Require(TokenCount(reduced) >= 0 && TokenCount(reduced) <= count, "the reduced text is no longer");
    if (result > 0) Require(Compile(reduced, records) > 0, "the reduced text compiles too");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 300) return 0;  // a token costs 256 questions to the keyboard layout
    const std::string text(reinterpret_cast<const char*>(data), size);
    const int count = TokenCount(text);
    if (count >= 0) {
        CheckClosedText(text, count);
    } else {
        Require(OpenBraceFails(text), "an open brace is a range failure");
        Require(ReduceKeystrokes(text) == text && TokenUnder(text, static_cast<int>(size)).index == -1,
                "an open brace stays as it is");
    }
    return 0;
}
