// A recording from its start to the hand-over of its arrays. One at a time, so its state stands here for all to see:
// the hooks fill it (input_capture.h), the status form pauses it (recording_status.h), RepairClicks mends it at the
// end. The signatures and chains are windowArrays of identity/window_identity.h. Starting and stopping pump.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "jobs/job_records.h"
#include "platform/timers.h"
#include "platform/types.h"
#include "recording/event_array.h"

// Of the tray icon while a new job is recorded; not translated.
inline constexpr const char* RecordingTip = "Recording... Click here to stop recording.";

// The one answer to whether a recording is on, and how far it is.
enum class RecordingState {
    Idle,
    Preparing,  // from the record button, or the start of a piece for an open job, until the hooks are in
    Recording,
    Paused,    // the hooks are in, and nothing is captured
    Stopping,  // from what ended it until it has been handed over
};

struct RecordingSession {
    RecordingState state = RecordingState::Idle;
    bool stopIsPutOff = false;        // stopped inside a hook call; the rest follows outside
    bool insertingRecording = false;  // the session belongs to the job editor
    bool stoppedByPauseKey = false;   // for the Save As form: the key is still to come up

    EventArray recordingEvents;
    std::int32_t eventCount = 0;  // during capture the index of the newest event, -1 for none; afterwards the number
    std::int32_t eventCapacity = 0;
    bool growEvents = false;          // nine tenths in use
    bool hookBusy = false;            // the keyboard's procedure was called with a code that nobody knows
    std::array<bool, 301> keyDown{};  // by virtual key: seen down and not yet seen up

    // Ticks and ms; an event's time is the tick less the start less the pauses.
    std::int64_t recordingStartTick = 0;
    std::int64_t pauseStartTick = 0;
    std::int64_t pausedTotalMs = 0;

    platform::Point LastCursorPosition;
    std::int32_t doubleClickTime = 0;  // ms
    platform::Size screen;             // as it was at the start
    bool scrollLockLeftDown = false;

    // What goes down on a box of our own comes up unrecorded, too.
    std::array<bool, 301> keyLeftOut{};   // by virtual key
    std::array<bool, 301> keyRecorded{};  // as it went down
    std::int32_t buttonsLeftOut = 0;      // the flags of their releases

    bool outOfMemory = false;          // which is why it ended
    std::int32_t capsLockAtStart = 0;  // the raw value of GetKeyState(VK_CAPITAL)
    StartProgramRecord program;        // started when the recording began

    platform::TimerId timer_recording = 0;
    std::int64_t timerTicks = 0;  // never reset
};
extern RecordingSession recordingSession;

// Recording or Paused: there is something to stop.
bool CaptureIsOn();

// Begins a recording of a new job, with `startProgram` started first. From the return on, it runs on hook calls and
// timer ticks; or it is over, when it was stopped before it had begun. A run-time failure (the program cannot be
// started, no memory) leaves no recording behind.
void StartRecording();

// Begins a recording of a piece for the open job, whose windows and chains it continues; they are in windowArrays
// afterwards, with indexes as they were. `startTick` is the tick at which the job's time was 0, so that the new times
// run on from the insertion point. Refused, with a box, while a hook is installed. A run-time failure leaves no
// recording behind, and gives the editor a piece with nothing in it.
void StartInsertRecording(std::int64_t startTick, const std::vector<WindowSignature>& windows,
                          const std::vector<WindowChain>& chains);

// Puts both hooks in, or in again; platform/hooks.h tells which of them the system granted.
void InstallRecordingHooks();

// Ends either kind and hands it over: to the editor, or to the Save As form, which is open until this returns. From the
// call on, nothing more is captured. Inside a hook call the rest waits for the first pump outside, and before the hooks
// are in, for the end of the start. Ignored when none is under way. The caller has taken off what the stop itself put
// into the array.
void StopRecording();

// The rest of a stop inside a hook call, if there is one. Called by the pump, and by every tick of timer_recording: a
// stop must not fail for want of memory.
void FinishStop();

// Ends it without a hand-over: what was captured is dropped.
void AbandonRecording();

// The time of an event that happens now, ms.
std::int32_t RecordedTime();

// The finished recording as a job with the options of a new one.
Job RecordedJob();
