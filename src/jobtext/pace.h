// Tells how far a long work has come, about every hundredth of it.
#pragma once

#include <cstddef>
#include <limits>

#include "jobtext/job_text.h"

class TextPace {
public:
    TextPace(const TextProgress& toldProgress, std::size_t totalBytes)
        : progress(toldProgress),
          total(totalBytes),
          next(toldProgress ? totalBytes / 100 : std::numeric_limits<std::size_t>::max()) {}

    void Advance(std::size_t bytes) { At(done + bytes); }

    void At(std::size_t doneBytes) {
        done = doneBytes;
        if (done < next) return;
        progress(done, total);
        next = done + total / 100 + 1;
    }

    void End() {
        if (progress) progress(total, total);
    }

private:
    const TextProgress& progress;
    const std::size_t total;
    std::size_t done = 0;
    std::size_t next;
};
