// The records of a job, which every subsystem passes around: plain values, linked by integer indexes into sibling
// arrays. docs/job_format.md tells how they lie in a file.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/input.h"
#include "platform/types.h"

// Values of JobEvent::dwType beside platform::InputMouse (0) and platform::InputKeyboard (1). There is no 3.
enum TextEventType : std::int32_t {
    INPUT_TEXT = 2,        // head of a text row: Strings[StringIndex - 1] is typed
    TextContinuation = 4,  // a former key event that belongs to the text row before it; never sent
};

// dwFlags of every mouse event is this base plus exactly one action.
inline constexpr std::int32_t MouseFlagBase = platform::MouseAbsolute;
inline constexpr std::int32_t DoubleClickFlags = 221;  // a finished double click; has no base in it

// Recording marks an event without a window with this; code tests for negative.
inline constexpr std::int32_t NoWindowMarker = static_cast<std::int32_t>(0xF0000001U);

inline constexpr std::int32_t MaximumSpeed = 1001;  // SpeedPercent: waits are dropped

inline constexpr std::size_t LongestString = 65535;  // of Job::Strings: the file has 16 bits for its length

// JobEvent::IfNoWindow: what to do when the window cannot be found.
enum IfNoWindowChoice : std::uint8_t { StopExecuting = 0, SkipAction = 1, ExecuteAnyway = 2 };

// One input event. It begins with the words of an InputRecord, so that it can be sent as it stands; a text row
// keeps its time in word 3, like a key.
struct JobEvent : platform::InputRecord {
    std::int32_t WindowChainIndex = NoWindowMarker;  // into Job::Chains; negative: no window
    std::int32_t WaitForWindow = 0;                  // seconds
    std::uint8_t IfNoWindow = StopExecuting;

    std::int32_t& StringIndex() { return word[6]; }  // from 1, types 2 and 4
    std::int32_t StringIndex() const { return word[6]; }

    // Milliseconds since the start of the recording: word 5 of a mouse event, word 3 of all others.
    std::int32_t& time() { return dwType() == platform::InputMouse ? word[5] : word[3]; }
    std::int32_t time() const { return dwType() == platform::InputMouse ? word[5] : word[3]; }
};
static_assert(sizeof(JobEvent) == 40);

// The stored identity of one window. Text is trimmed.
struct WindowSignature {
    platform::WindowPlacement Placement;
    std::string Caption;    // at most 1024 characters
    std::string ClassName;  // at most 100 characters
    std::int32_t ControlId = 0;
};

// The way from a window up to its last recorded ancestor, as indexes into Job::Windows.
struct WindowChain {
    static constexpr std::int32_t MaximumLevels = 256;

    std::int32_t LeafWindow = 0;
    std::array<std::int32_t, MaximumLevels> Path{};  // Path[0] is the window itself
    std::int32_t Depth = 0;                          // index of the last entry of Path in use
};

// The program that a job starts first; an empty path means none.
struct StartProgramRecord {
    std::string ProgramPath;       // at most 800 characters
    std::string CommandLine;       // at most 300 characters
    std::int16_t WindowStyle = 0;  // 0 hidden (or no program), 1 normal, 2 minimised, 3 maximised
};

// How surely a window must be the recorded one. At low safety windows are not looked for.
inline constexpr std::int32_t SafetyHigh = 0;
inline constexpr std::int32_t SafetyMedium = 1;
inline constexpr std::int32_t SafetyLow = 2;

// The front of a job: what a header check reads.
struct JobHeader {
    std::int32_t Version = 0;
    StartProgramRecord StartProgram;
    std::string Description;  // at most 1000 characters
    std::int32_t DurationMs = 0;
    std::int32_t SpeedPercent = 100;  // 1..1001; 100 is recorded speed
    std::int32_t SkipMouseMoves = 0;
    std::int32_t CapsLockState = 0;  // the raw value of GetKeyState(VK_CAPITAL)
    std::int32_t RepeatCount = 1;    // 0: over and over again
    std::int32_t SafetyLevel = 0;    // SafetyHigh to SafetyLow
    std::int32_t SimilarWindowNames = 0;
};

// A job as the file holds it. The counts of the file are the sizes of the arrays.
struct Job : JobHeader {
    std::vector<std::string> Strings;
    std::vector<JobEvent> Events;
    std::vector<WindowSignature> Windows;
    std::vector<WindowChain> Chains;
};
