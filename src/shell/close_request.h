// Another program asks this one to end, as a rule an installer that is to replace its files: WM_QUERYENDSESSION with
// ENDSESSION_CLOSEAPP, as the Restart Manager of Windows sends it. Unlike the end of the session it can wait.
#pragma once

// False while anything would be broken off or left undecided: a recording, a run, a countdown, runs that still wait for
// the computer's start to settle, commands of second starts, a box or form over the main window (the job editor among
// them), changes on the job page. Asks nobody and does not pump. What follows a yes is EndWithSession (session_end.h).
bool MayBeEnded();
