#include "jobtext/usual.h"

#include "jobs/job_file.h"

std::optional<std::int32_t> UsualDuration(const JobHeader& header, std::int32_t lastTime) {
    if (lastTime != 0 && header.SpeedPercent == 0) return std::nullopt;
    return DurationAtSpeed(lastTime, header.SpeedPercent);
}

std::int32_t UsualLeaf(const std::array<std::int32_t, WindowChain::MaximumLevels>& path, std::int32_t levels) {
    return levels > 0 ? path[0] : 0;
}
