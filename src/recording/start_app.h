// `start_app`, less its window: a program to start as the recording begins.
#pragma once

#include <cstdint>
#include <string>

#include "jobs/job_records.h"

// What was chosen, for the recording that begins next.
extern StartProgramRecord startProgram;

// What the controls hold. Check1: run a program; Check2: with parameters; Combo1: "Normal", "Maximized", "Minimized".
struct StartAppControls {
    bool Check1 = false;
    std::string text_program_path;
    bool Check2 = false;
    std::string text_command_line;
    int Combo1 = 0;

    // Ticking a box also gives the focus to its text.
    bool ProgramPathEnabled() const { return Check1; }
    bool CommandLineEnabled() const { return Check2; }
};

inline constexpr const char* ProgramFilter = "Executable files|*.exe|Batch files|*.bat|Com files|*.com";

// Command1 brought a file from its dialog.
void TakeChosenProgram(StartAppControls& controls, const std::string& path);

// Command2 ("Start recording"). True when the dialog may close; else a box has told why not (pumps). Without a program
// path and parameters are empty.
bool AcceptStartApp(const StartAppControls& controls);

// command3 ("Cancel").
void CancelStartApp();
bool StartAppCanceled();
