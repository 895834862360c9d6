// Jobs that nobody would record: a random sequence of everything that a fold has a rule for.
#pragma once

#include "jobs/job_records.h"

Job RandomJob(unsigned seed, int gestures);
