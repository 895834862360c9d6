// A job of a million events as text and back, from file to file, on the disk of the folder given (or the temporary
// folder). Both sides go through the same operations of the platform and find the bytes in the system's cache.
#include "jobtext/job_text.h"

#include <malloc.h>

#include <cstdio>
#include <nlohmann/json.hpp>

#include "bench/mixed_job.h"
#include "bench/posix_files.h"
#include "bench/ratio.h"
#include "jobs/job_file.h"
#include "storage/input_file.h"
#include "storage/save_file.h"

namespace {

constexpr int EventCount = 1'000'000;
const std::string jobFile = "C:\\large.tsj";
const std::string textFile = "C:\\large.json";
const std::string plainFile = "C:\\plain.json";
const std::string againFile = "C:\\again.tsj";

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
    InputFile job(jobFile);
    PlainFile text(textFile);
    ExportJob(job, [&text](std::string_view block) { text.Write(block); });
}

std::string_view All(InputFile& file) {
    const auto size = static_cast<std::size_t>(file.Length());
    return {file.Take(size), size};
}

void Import() {
    InputFile text(textFile);
    SaveFile job(againFile);
    ImportJob(textFile, All(text), [&job](std::string_view block) { job.Write(block.data(), block.size()); });
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
    InputFile file(textFile);
    const std::string_view text = All(file);
    Nothing nothing;
    if (!nlohmann::json::sax_parse(text.begin(), text.end(), &nothing)) posix_files::Stop("parse");
}

void RequireSameBytes() {
    InputFile job(jobFile);
    InputFile again(againFile);
    if (All(job) != All(again)) posix_files::Stop("the job came back as another one");
}

}  // namespace

int main(int argumentCount, char** arguments) {
    mallopt(M_MMAP_THRESHOLD, 1 << 30);  // memory that has been used before, and not page by page from the system
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    return posix_files::RunBench(argumentCount, arguments, "job_text_bench", [] {
        WriteJob(jobFile, MixedJob(EventCount));
        Export();
        Import();
        RequireSameBytes();
        InputFile text(textFile);
        const std::string_view all = All(text);
        bench::ReportRatio(
            "export a job / fwrite its text", Export, [all] { PlainFile(plainFile).Write(all); }, 4);
        bench::ReportRatio("import a job / parse its text", Import, Parse, 1.3);
    });
}
