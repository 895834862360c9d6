// MakeExe: a saved job as a program of its own, for a machine without this one. Nothing clever is done: a ready-made
// runner, the file execreator.bin beside the program, two bytes for the language, and the job file, byte for byte.
#pragma once

#include <cstdint>
#include <string>

#include "storage/save_file.h"

// Asks for the name of the executable and writes it in one step: whoever starts it meets the old one or the new one,
// whole. A longer file that bore the name keeps its tail behind the new bytes. Boxes tell of a runner that is missing,
// of success and of what went wrong. Pumps.
void MakeExe(const std::string& jobPath);

// The bytes alone, without a word: `runner` and the job are files. Fails as files do, and for an empty one.
void WriteMadeExecutable(const std::string& path, const std::string& runner, std::int16_t language,
                         const std::string& jobPath, OldTail oldTail);
