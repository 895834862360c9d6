#include "jobtext/carried.h"

#include <algorithm>

std::int32_t LevelsOf(const WindowChain& chain) {
    if (chain.Depth >= -1 && chain.Depth < WindowChain::MaximumLevels) return chain.Depth + 1;
    const auto last =
        std::find_if(chain.Path.rbegin(), chain.Path.rend(), [](std::int32_t window) { return window != 0; });
    return static_cast<std::int32_t>(chain.Path.rend() - last);
}

JobEvent Carried(const JobEvent& event) {
    if (event.dwType() == platform::InputMouse) return event;
    JobEvent carried = event;
    carried.word = {};
    carried.dwType() = event.dwType();
    carried.keyTime() = event.keyTime();
    if (event.dwType() == platform::InputKeyboard) {
        carried.KeyCode() = event.KeyCode();
        carried.KeyState() = event.KeyState();
        carried.keyExtraInfo() = event.keyExtraInfo();
    } else if (event.dwType() == INPUT_TEXT || event.dwType() == TextContinuation) {
        carried.StringIndex() = event.StringIndex();
    }
    return carried;
}

WindowChain Carried(const WindowChain& chain) {
    WindowChain carried = chain;
    std::fill(carried.Path.begin() + LevelsOf(chain), carried.Path.end(), 0);
    return carried;
}
