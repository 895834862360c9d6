// The bytes of a job file by what they belong to, the tail included that a longer old file has left behind: for tools
// that must not lose a byte. Readers of jobs want ReadJob.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// All views are into the bytes that were given.
struct JobParts {
    // Records that follow each other. A count of zero or less, as it stands in the file, has none.
    struct Array {
        std::int32_t count = 0;
        std::string_view bytes;
    };

    std::string_view header;
    std::int32_t stringCount = 0;
    std::vector<std::string_view> strings;
    Array events;
    Array windows;
    Array chains;
    std::string_view tail;
};

// The parts of what ReadJob reads; where that is a file failure, this fails alike. `name` is the file's, for failures.
JobParts PartsOfJob(const std::string& name, std::string_view bytes);
