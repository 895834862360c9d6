#include "storage/output_file.h"

namespace {

constexpr std::size_t WriteBlockSize = 128ULL * 1024;  // every record of today and every string fits

}  // namespace

OutputFile::OutputFile(const std::string& path) : file(path), block(WriteBlockSize) {
    next = block.data();
    end = next + block.size();
}

void OutputFile::Commit() {
    Empty();
    file.Commit();
}

void OutputFile::MakeRoom(std::size_t size) {
    Empty();
    if (size <= block.size()) return;
    block.resize(size);
    next = block.data();
    end = next + size;
}

void OutputFile::Empty() {
    file.Write(block.data(), static_cast<std::size_t>(next - block.data()));
    next = block.data();
}
