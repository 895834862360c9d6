#include "base/runtime_failure.h"
#include "keystrokes/notation.h"
#include "keystrokes/parsing.h"

namespace {

constexpr int LeftShift = 160;
constexpr int RightShift = 161;
constexpr int FirstNavigationKey = 33;  // PAGE_UP, and on to the arrows
constexpr int LastNavigationKey = 40;

// With a shift held, the navigation keys must go out as extended keys, or the system takes them for their twins on the
// numeric pad. A shift that is only pressed counts as held until its UP, as in every text compiled so far.
struct HeldShifts {
    bool left = false;
    bool right = false;

    // Takes the next token in; true if it is an extended key.
    bool Extended(int vk, int action) {
        const bool down = action == ActionDown || action == ActionPress;
        if (vk == LeftShift) left = down;
        if (vk == RightShift) right = down;
        if (vk == RightShift) return true;
        return (left || right) && vk >= FirstNavigationKey && vk <= LastNavigationKey;
    }
};

// The wheel has no scan code; any number above 0 lets it pass, and it is never sent as a key.
int ScanCodeFor(int vk) {
    return vk == WheelKey ? 1 : platform::ScanCodeOf(vk);
}

// Empty for a good token.
std::string Fault(const std::string& token, int vk, int action) {
    if (vk == KeyCodeUnknown || action == ActionNone) return "Invalid keystroke:\"" + token + "\"";
    if (ScanCodeFor(vk) < 1) return "Invalid scancode for keystroke \"" + token + "\"";
    return {};
}

platform::InputRecord KeyRecord(int vk, int action) {
    platform::InputRecord record;
    record.dwType() = platform::InputKeyboard;
    record.KeyCode() = ScanCodeFor(vk) * 65536 + vk;
    record.KeyState() = action;
    return record;
}

}  // namespace

int CompileKeystrokes(const std::string& text, std::vector<platform::InputRecord>& records, std::vector<bool>& extended,
                      std::string& message) {
    records.clear();
    extended.clear();
    const auto tokens = SplitTokens(text);
    if (!tokens) throw RuntimeFailure(FailureKind::Range, "A \"{\" is not closed in the keystrokes " + text);
    message = "There is no keystrokes to send";
    KeyNameMemory names;
    HeldShifts shifts;
    int vk = 0;
    int action = 0;
    for (const std::string& token : *tokens) {
        ParseToken(token, vk, action, names);
        message = Fault(token, vk, action);
        if (!message.empty()) {
            const int index = static_cast<int>(records.size());
            records.clear();
            extended.clear();
            return -index;
        }
        records.push_back(KeyRecord(vk, action));
        extended.push_back(shifts.Extended(vk, action));
    }
    if (!records.empty()) message = "OK!";
    return static_cast<int>(records.size());
}
