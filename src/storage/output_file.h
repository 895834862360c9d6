// The counterpart of InputFile: a file that is written from front to back, in blocks, by a crash-safe save (see
// save_file.h for what a failure leaves behind). Nothing is at its place before Commit.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "storage/record_output.h"
#include "storage/save_file.h"

class OutputFile : public RecordOutput {
public:
    explicit OutputFile(const std::string& path);

    void Commit();

private:
    void MakeRoom(std::size_t size) override;
    void Empty();

    SaveFile file;
    std::vector<char> block;
};
