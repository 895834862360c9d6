// A piece recorded into the open job, above or below a row, by the ordinary recording.
#pragma once

#include <cstdint>

// The two buttons. In a job without rows the first records its beginning.
void start_recording_above();
void start_recording_below();

// Asks, puts the editor aside and starts the recording. Pumps.
void InsertRecording(std::int32_t rowIndex, bool empty, bool above);

// ZavrsiUmetanjeSnimanjem ("finish the insertion by recording"): the recording is over, its events are put into the
// job, and the editor comes back. A piece with nothing in it leaves the job as it was. Pumps.
void ZavrsiUmetanjeSnimanjem();
