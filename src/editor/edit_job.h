// The way into the job editor, which shows a job as rows that a person can read and change. There is no editor window
// yet: nothing opens, and the caller learns so from the handle.
#pragma once

#include <string>

#include "platform/types.h"

inline constexpr bool EditorExists = false;

// editJob: opens the job file in the editor and returns the editor's window, 0 when none was opened.
platform::WindowHandle editJob(const std::string& jobPath);
