// A modal window of the system's: whoever watches boxes is told when it opens and when it has closed.
#pragma once

#include "win32/handles.h"

namespace platform {

class OpenBox {
public:
    explicit OpenBox(HWND owner);
    ~OpenBox();
    OpenBox(const OpenBox&) = delete;
    OpenBox& operator=(const OpenBox&) = delete;
};

}  // namespace platform
