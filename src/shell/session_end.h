// The user logs off, or the computer is shut down. The question before it (WM_QUERYENDSESSION) is answered with yes,
// which is the system's own answer: what would be lost is written down here, and what the user has not confirmed, like
// a changed property of a job, keeps nobody at the computer. Nothing is asked any more. An installer that wants to
// replace the program's files ends it in the same way, but may be told to wait (close_request.h).
#pragma once

// WM_ENDSESSION. Writes what is being recorded, or waits to be saved, as a job "Recovered", and the job in the editor,
// if it was changed, as another, then the settings, and ends the process. What cannot be written is lost without a
// word: there is nobody to hear it.
void EndWithSession();
