// What every story on the simulated desktop is told with.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_failure.h"
#include "platform/clock.h"
#include "platform/input.h"
#include "platform/pump.h"
#include "platform/window_services.h"
#include "simulated/desktop.h"
#include "simulated/files.h"
#include "support/boxes.h"
#include "support/failures.h"

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
