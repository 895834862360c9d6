// What tsj prints for another program to read.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "jobs/job_records.h"

using Json = nlohmann::ordered_json;  // members stay as they are put in

// Lines for people, too. A byte that is no UTF-8 is replaced: what is told is text.
std::string Indented(const Json& json);

// A recorded window, or one that is there now.
Json WindowJson(const WindowSignature& window);
