// Show states, for the other modules of the simulated desktop.
#pragma once

#include "simulated/window_tree.h"

namespace simulated {

// ShowWindow with one of SW_HIDE .. SW_FORCEMINIMIZE.
void ShowAs(Window& window, std::uint32_t showCommand);

}  // namespace simulated
