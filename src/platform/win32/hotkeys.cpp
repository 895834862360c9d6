#include "platform/hotkeys.h"

#include "win32/handles.h"

namespace platform {

bool RegisterHotkey(WindowHandle window, int id, int modifiers, int virtualKey) {
    const UINT flags = static_cast<UINT>(modifiers) | MOD_NOREPEAT;  // a key that is held is one press
    return RegisterHotKey(ToHwnd(window), id, flags, static_cast<UINT>(virtualKey)) != FALSE;
}

bool UnregisterHotkey(WindowHandle window, int id) {
    return UnregisterHotKey(ToHwnd(window), id) != FALSE;
}

}  // namespace platform
