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

// Called about a hundred times on the way, with bytes of the input.
using TextProgress = std::function<void(std::size_t done, std::size_t total)>;

// Hands the text of a job file to `sink`, in blocks of up to some 100 KB. `name` is the file's, for failures. Texts are
// written as the code page has them. A file failure for what ReadJob cannot read, a range failure for a code page that
// is not known here; the sink may have been called by then in neither case.
void ExportJob(const std::string& name, std::string_view bytes, const TextSink& sink,
               int codePage = platform::SystemCodePage(), const TextProgress& progress = {});

// The bytes of the job file that the text tells. Any layout of the JSON will do, and any order of members. What is not
// understood, is lacking, or contradicts itself is a file failure: a sentence with the name, the line, and what to do.
std::string ImportJob(const std::string& name, std::string_view text, const TextProgress& progress = {});
