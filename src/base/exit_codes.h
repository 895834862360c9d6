// What a program that plays one job, and then ends, tells whoever started it: made programs, and the command line.
#pragma once

enum class ExitCode : int {
    Success = 0,
    Failed = 1,              // a row of the job failed, or a program that it wants to start
    Cancelled = 2,           // by the user, with ESC
    NothingToPlay = 3,       // the job is damaged, or empty
    Busy = 4,                // another run or a recording is under way on this desktop
    DesktopUnreachable = 5,  // it is locked, or Windows asks a question of its own
    TimedOut = 6,            // the time that the run was given is over
    WrongUsage = 64,         // of the command line (EX_USAGE of sysexits.h)
};
