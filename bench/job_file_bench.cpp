// Job files against plain files of the same bytes, on the disk of the folder given (or the temporary folder). Both
// sides go through the same operations of the platform, both find the bytes in the system's cache, and both flush.
#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>

#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "jobs/job_file.h"
#include "platform/files.h"

// The peak of the memory in use, counted at the source.
namespace memory {

std::atomic<std::int64_t> inUse = 0;
std::atomic<std::int64_t> peak = 0;

void Took(std::size_t size) {
    const std::int64_t now = inUse += static_cast<std::int64_t>(size);
    if (now > peak) peak = now;
}

// The size stands in front of the block.
constexpr std::size_t Head = alignof(std::max_align_t);

}  // namespace memory

void* operator new(std::size_t size) {
    auto* const block = static_cast<char*>(std::malloc(size + memory::Head));
    if (block == nullptr) throw std::bad_alloc();
    *reinterpret_cast<std::size_t*>(block) = size;
    memory::Took(size);
    return block + memory::Head;
}

void operator delete(void* memoryBlock) noexcept {
    if (memoryBlock == nullptr) return;
    char* const block = static_cast<char*>(memoryBlock) - memory::Head;
    memory::inUse -= static_cast<std::int64_t>(*reinterpret_cast<std::size_t*>(block));
    std::free(block);
}

void operator delete(void* memoryBlock, std::size_t) noexcept {
    operator delete(memoryBlock);
}

// The program's main window, which is not there.

namespace {

constexpr int EventCount = 1'000'000;
constexpr int HeaderFiles = 10'000;
constexpr std::int64_t FrontSize = 2142;
const std::string largeJob = "C:\\large.tsj";
const std::string plainFile = "C:\\plain.bin";

Job LargeJob() {
    Job job;
    job.Events.resize(EventCount);
    for (int i = 0; i < EventCount; ++i) {
        JobEvent& event = job.Events[static_cast<std::size_t>(i)];
        event.dx() = i % 1280;
        event.dy() = i % 1024;
        event.dwFlags() = MouseFlagBase + platform::MouseMove;
        event.time() = i * 10;
    }
    job.Windows.resize(20);
    job.Chains.resize(20);
    return job;
}

std::string HeaderFile(int number) {
    return "C:\\job" + std::to_string(number) + ".tsj";
}

// new char[] without the zeros, as a plain reader would take it.
struct Bytes {
    std::unique_ptr<char[]> bytes;
    std::int64_t size = 0;
};

Bytes PlainRead(const std::string& path) {
    platform::File file = platform::File::OpenForReading(path);
    Bytes all;
    all.size = file.Length();
    all.bytes = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(all.size));
    if (file.Read(all.bytes.get(), all.size) != all.size) posix_files::Stop("plain read");
    return all;
}

void PlainWrite(const Bytes& all) {
    platform::File file = platform::File::Create(plainFile);
    if (!file.Write(all.bytes.get(), all.size) || !file.Flush() || !file.Close()) posix_files::Stop("plain write");
}

void CheckHeaders() {
    for (int i = 0; i < HeaderFiles; ++i) {
        if (CheckJobHeader(HeaderFile(i)).result != JobHeaderCheck::Good) posix_files::Stop("check header");
    }
}

void ReadFronts() {
    char front[FrontSize];
    for (int i = 0; i < HeaderFiles; ++i) {
        platform::File file = platform::File::OpenForReading(HeaderFile(i));
        if (file.Read(front, FrontSize) != FrontSize) posix_files::Stop("read front");
    }
}

void MeasureMemory() {
    const std::int64_t before = memory::inUse;
    memory::peak = before;
    Job job;
    ReadJob(largeJob, job);
    const auto bytes = static_cast<double>(memory::peak - before);
    bench::Report("memory per event at the peak, bytes", bytes / static_cast<double>(job.Events.size()), 48);
}

void MeasureLargeJob() {
    const Job job = LargeJob();
    WriteJob(largeJob, job);
    const Bytes bytes = PlainRead(largeJob);
    bench::ReportRatio(
        "read job / plain read",
        [] {
            Job read;
            ReadJob(largeJob, read);
            if (read.Events.size() != EventCount) posix_files::Stop("read job");
        },
        [] { PlainRead(largeJob); }, 2.0);
    // Both wait for the disk to have it.
    bench::ReportRatio(
        "write job / plain write", [&] { WriteJob(largeJob, job); }, [&] { PlainWrite(bytes); }, 2.0, 15,
        bench::Seconds);
    MeasureMemory();
}

void MeasureHeaders() {
    Job job;
    job.Description = "A job like any other";
    job.Events.resize(10);
    for (int i = 0; i < HeaderFiles; ++i) WriteJob(HeaderFile(i), job);
    bench::ReportRatio("check header / open, read 2142 bytes, close", CheckHeaders, ReadFronts, 1.3);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "job_file_bench", [] {
        MeasureLargeJob();
        MeasureHeaders();
    });
}
