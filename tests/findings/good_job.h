// Random jobs without a fault, as they are after some work in the job editor: rows of keys and of stored texts, clicks,
// drags, the wheel and moves in windows that have a place.
#pragma once

#include <random>

#include "jobs/job_records.h"

// No two events have the same time.
Job GoodJob(unsigned seed);

using Random = std::mt19937;

inline int Below(Random& random, int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
}
