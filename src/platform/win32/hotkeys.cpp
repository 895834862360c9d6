#include "platform/hotkeys.h"

#include "win32/handles.h"

namespace platform {

bool RegisterHotkey(WindowHandle window, int id, int modifiers, int virtualKey) {
    return RegisterHotKey(ToHwnd(window), id, static_cast<UINT>(modifiers), static_cast<UINT>(virtualKey)) != FALSE;
}

bool UnregisterHotkey(WindowHandle window, int id) {
    return UnregisterHotKey(ToHwnd(window), id) != FALSE;
}

}  // namespace platform
