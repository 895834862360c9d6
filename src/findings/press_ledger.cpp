#include "findings/press_ledger.h"

namespace {

constexpr std::int32_t RightX = 2;  // the number of the second X button

// Alt Gr is a Ctrl and an Alt that repeat in turn.
bool AreAltGr(std::int32_t vk, std::int32_t other) {
    constexpr std::int32_t leftCtrl = 162;
    constexpr std::int32_t rightAlt = 165;
    return (vk == leftCtrl && other == rightAlt) || (vk == rightAlt && other == leftCtrl);
}

// Keys that come up after they went down. Those of input methods switch back and forth under two codes, and keys of
// the maker of the keyboard or for media may tell one half only.
bool ComesUp(std::int32_t vk) {
    const bool inputMethod = vk >= 21 && vk <= 31 && vk != 27;
    const bool media = vk == 95 || (vk >= 166 && vk <= 183);
    constexpr std::int32_t angleBrackets = 226;  // the key beside the left shift of European keyboards
    return vk > 6 && !inputMethod && !media && (vk < 224 || vk == angleBrackets);
}

std::int32_t XButtonOf(const JobEvent& event) {
    return event.mouseData() % 65536 == RightX ? PressLedger::X2 : PressLedger::X1;
}

}  // namespace

PressLedger::PressLedger() {
    pressedAt.fill(-1);
}

void PressLedger::TakeKey(const JobEvent& event, std::int32_t index) {
    const std::int32_t vk = event.KeyCode() % 65536;
    switch (event.KeyState()) {
        case 0:
        case platform::KeyExtended:
            return PressKey(vk, index);
        case platform::KeyUp:
            return ReleaseKey(vk, index, false);
        case platform::KeyUp + platform::KeyExtended:
            return ReleaseKey(vk, index, true);
        default:  // of a key that a program has sent; it is not known to be whole
            return;
    }
}

void PressLedger::TakeMouse(const JobEvent& event, std::int32_t index) {
    switch (event.dwFlags() - MouseFlagBase) {
        case platform::MouseLeftDown:
            return PressButton(Left, index);
        case platform::MouseRightDown:
            return PressButton(Right, index);
        case platform::MouseMiddleDown:
            return PressButton(Middle, index);
        case platform::MouseXDown:
            return PressButton(XButtonOf(event), index);
        case platform::MouseLeftUp:
            pressedAt[FirstButton + Left] = -1;
            return;
        case platform::MouseRightUp:
            pressedAt[FirstButton + Right] = -1;
            return;
        case platform::MouseMiddleUp:
            pressedAt[FirstButton + Middle] = -1;
            return;
        case platform::MouseXUp: {
            const std::int32_t input = FirstButton + XButtonOf(event);
            pressedAt[static_cast<std::size_t>(input)] = -1;
            return;
        }
        case DoubleClickFlags - MouseFlagBase:
            PressButton(Left, index);
            pressedAt[FirstButton + Left] = -1;
            return;
        case platform::MouseWheel:
            return TakeOther(index);
        default:
            return;
    }
}

void PressLedger::TakeToken(std::int32_t vk, std::int32_t action, std::int32_t index) {
    lastPress = index;
    if (vk == WheelKey) return;
    if (action != ActionUp) PressKey(vk, index);
    if (action != ActionDown) ReleaseKey(vk, index, false);
}

void PressLedger::PressKey(std::int32_t vk, std::int32_t index) {
    lastPress = index;
    std::int32_t& since = pressedAt[static_cast<std::size_t>(vk)];
    const bool repeats = lastKey == vk || AreAltGr(vk, lastKey);
    if (since >= 0 && !repeats && ComesUp(vk)) {
        pressedTwice.push_back({since, vk});
        since = -1;
    }
    if (since < 0) since = index;
    lastKey = vk;
}

void PressLedger::ReleaseKey(std::int32_t vk, std::int32_t index, bool mayBeAlone) {
    std::int32_t& since = pressedAt[static_cast<std::size_t>(vk)];
    if (since < 0 && !mayBeAlone && ComesUp(vk)) loneReleases.push_back({index, vk});
    since = -1;
}

void PressLedger::PressButton(std::int32_t button, std::int32_t index) {
    lastPress = index;
    const std::int32_t input = FirstButton + button;
    std::int32_t& since = pressedAt[static_cast<std::size_t>(input)];
    if (since >= 0) pressedTwice.push_back({since, input});
    since = index;
}

std::vector<PressLedger::Held> PressLedger::HeldAtEnd() const {
    std::vector<Held> held;
    for (std::size_t input = 0; input < pressedAt.size(); ++input) {
        const auto key = static_cast<std::int32_t>(input);
        if (pressedAt[input] >= 0 && (key >= FirstButton || ComesUp(key))) held.push_back({pressedAt[input], key});
    }
    return held;
}
