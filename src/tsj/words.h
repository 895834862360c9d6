// What the numbers in a job's records are called, in one or two English words.
#pragma once

#include <cstdint>
#include <string>

#include "jobs/job_records.h"

std::string SpeedWords(std::int32_t percent);
std::string SafetyWord(std::int32_t level);
std::string IfNoWindowWord(std::uint8_t choice);

// What an event does ("left down", "key up", "text"), and with what ("120,45", "VK 65", "string 2").
std::string EventWord(const JobEvent& event);
std::string EventData(const JobEvent& event);
