// The look at a job's file before something is done with it.
#pragma once

#include <string>

#include "platform/boxes.h"
#include "platform/files.h"

// Whether the job can be read now, after a short wait for one that is held. When it cannot, a box says why: it does not
// exist, or another program has it. The box pumps.
platform::FileState TellUnlessReadable(const std::string& path, platform::BoxIcon icon);

// "The file ... is in use by another program."
std::string TextOfHeldFile(const std::string& path);
