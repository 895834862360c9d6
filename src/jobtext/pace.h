// Tells how far a long work has come, about every hundredth of it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "jobtext/job_text.h"

class TextPace {
public:
    TextPace(TextProgress toldProgress, std::size_t totalWork)
        : progress(std::move(toldProgress)),
          total(totalWork),
          next(progress ? totalWork / 100 : std::numeric_limits<std::size_t>::max()) {}

    // The total is an estimate; nobody is told of more.
    void Advance(std::size_t work) {
        done += work;
        if (done < next) return;
        progress(std::min(done, total), total);
        next = done + total / 100 + 1;
    }

    void End() {
        if (progress) progress(total, total);
    }

private:
    const TextProgress progress;
    const std::size_t total;
    std::size_t done = 0;
    std::size_t next;
};
