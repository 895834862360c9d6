// What the sources of this directory share: <windows.h>, and the way between its handles and the neutral ones.
#pragma once

#include <windows.h>

#include "platform/types.h"

namespace platform {

inline HWND ToHwnd(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

inline WindowHandle FromHwnd(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

inline Point FromPoint(POINT point) {
    return {point.x, point.y};
}

// A kernel handle (event, timer), closed by the destructor. May be empty.
class OwnedHandle {
public:
    explicit OwnedHandle(HANDLE owned) : handle(owned) {}
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    ~OwnedHandle() {
        if (handle != nullptr) CloseHandle(handle);
    }

    HANDLE Get() const { return handle; }

private:
    HANDLE handle;
};

}  // namespace platform
