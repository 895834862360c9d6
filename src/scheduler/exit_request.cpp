#include "scheduler/exit_request.h"

void ExitProgram(const std::function<void()>& quit) {
    quit();
}
