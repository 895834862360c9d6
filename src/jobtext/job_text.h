// A job file as text, in JSON, and back: to read, to compare, and to keep in version control. docs/job_text.md tells
// the format. One event, window, chain and string stands in a line of its own.
//
// Whatever ReadJob reads comes back byte for byte. What the members of a record cannot carry (padding that is not
// blanks, say) is kept beside them as bytes, and what stands behind the last array in "Tail". Nothing here pumps or
// writes a file.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "platform/text.h"

using TextSink = std::function<void(std::string_view block)>;

// Called about a hundred times on the way: how much of the input is done, in bytes or lines.
using TextProgress = std::function<void(std::size_t done, std::size_t total)>;

// Reads a job file and hands its text to `sink`, in blocks of some 100 KB. Texts are read as the code page has them. A
// file failure for what ReadJob cannot read, when part of the text may have been handed over already; a range failure
// for a code page that is not known here.
class InputFile;
void ExportJob(InputFile& job, const TextSink& sink, int codePage = platform::SystemCodePage(),
               const TextProgress& progress = {});

// Hands the bytes of the job file that the text tells to `sink`. Any layout of the JSON will do, and any order of
// members. What is not understood, is lacking, or contradicts itself is a file failure, before anything is handed over:
// a sentence with the name of the text, the line, and what to do.
void ImportJob(const std::string& name, std::string_view text, const TextSink& sink, const TextProgress& progress = {});
