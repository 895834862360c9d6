// What a program that plays one job, and then ends, tells whoever started it: made programs, and the command line.
#pragma once

enum class ExitCode : int {
    Success = 0,
    Failed = 1,              // a row of the job failed, or a program that it wants to start
    Cancelled = 2,           // by the user, with ESC
    NothingToPlay = 3,       // the job is damaged, or empty
    Busy = 4,                // another run is under way on this desktop
    DesktopUnreachable = 5,  // it is locked, or Windows asks a question of its own
};
