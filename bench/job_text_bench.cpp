// A job of a million events as text and back, from file to file, on the disk of the folder given (or the temporary
// folder). Both sides go through the same operations of the platform and find the bytes in the system's cache.
#include "jobtext/job_text.h"

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

#include "bench/mixed_job.h"
#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "jobs/job_file.h"
#include "platform/files.h"
#include "storage/save_file.h"

namespace {

constexpr int EventCount = 1'000'000;
const std::string jobFile = "C:\\large.tsj";
const std::string textFile = "C:\\large.json";
const std::string plainFile = "C:\\plain.json";
const std::string againFile = "C:\\again.tsj";

// Without the zeros that a string would be filled with first.
struct Bytes {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;

    std::string_view All() const { return {bytes.get(), size}; }
};

Bytes Read(const std::string& path) {
    platform::File file = platform::File::OpenForReading(path);
    Bytes all;
    all.size = static_cast<std::size_t>(file.Length());
    all.bytes = std::make_unique_for_overwrite<char[]>(all.size);
    if (file.Read(all.bytes.get(), file.Length()) != file.Length()) posix_files::Stop("read");
    return all;
}

class PlainFile {
public:
    explicit PlainFile(const std::string& path) : file(std::fopen(posix_files::RealPath(path).c_str(), "wb")) {
        if (file == nullptr) posix_files::Stop("open");
    }
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;
    ~PlainFile() { std::fclose(file); }

    void Write(std::string_view text) {
        if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) posix_files::Stop("write");
    }

private:
    std::FILE* file;
};

void Export() {
    const Bytes job = Read(jobFile);
    PlainFile text(textFile);
    ExportJob(jobFile, job.All(), [&text](std::string_view block) { text.Write(block); });
}

void Import() {
    const Bytes text = Read(textFile);
    SaveFile job(againFile);
    const std::string bytes = ImportJob(textFile, text.All());
    job.Write(bytes.data(), bytes.size());
    job.Commit(OldTail::Goes);
}

// Takes what the parser finds and does nothing with it.
struct Nothing {
    static bool null() { return true; }
    static bool boolean(bool) { return true; }
    static bool number_integer(std::int64_t) { return true; }
    static bool number_unsigned(std::uint64_t) { return true; }
    static bool number_float(double, const std::string&) { return true; }
    static bool string(const std::string&) { return true; }
    static bool binary(const std::vector<std::uint8_t>&) { return true; }
    static bool start_object(std::size_t) { return true; }
    static bool key(const std::string&) { return true; }
    static bool end_object() { return true; }
    static bool start_array(std::size_t) { return true; }
    static bool end_array() { return true; }
    static bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) { return false; }
};

void Parse() {
    const Bytes text = Read(textFile);
    Nothing nothing;
    if (!nlohmann::json::sax_parse(text.bytes.get(), text.bytes.get() + text.size, &nothing))
        posix_files::Stop("parse");
}

void RequireSameBytes() {
    if (Read(jobFile).All() != Read(againFile).All()) posix_files::Stop("the job came back as another one");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    return posix_files::RunBench(argumentCount, arguments, "job_text_bench", [] {
        WriteJob(jobFile, MixedJob(EventCount));
        Export();
        Import();
        RequireSameBytes();
        const Bytes text = Read(textFile);
        bench::ReportRatio(
            "export a job / fwrite its text", Export, [&text] { PlainFile(plainFile).Write(text.All()); }, 4);
        bench::ReportRatio("import a job / parse its text", Import, Parse, 1.3);
    });
}
