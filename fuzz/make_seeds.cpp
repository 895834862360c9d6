// The first inputs for the targets that read files: small, whole, and with something of everything.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "jobs/sample_job.h"
#include "settings/sample_settings.h"

namespace {

void Put(const std::filesystem::path& file, const std::string& bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 2) {
        std::fprintf(stderr, "usage: fuzz_seeds CORPUS_FOLDER\n");
        return 2;
    }
    const std::filesystem::path corpus = arguments[1];
    const std::string newer = FileBytes().Int32(307);
    const std::string empty = SampleBytes().substr(0, EventCountAt) + std::string(16, '\0');
    for (const char* target : {"read_job", "check_job_header"}) {
        Put(corpus / target / "sample", SampleBytes());
        Put(corpus / target / "empty", empty);
        Put(corpus / target / "newer", newer);
    }
    Put(corpus / "load_settings" / "sample", SampleSettingsBytes());
    Put(corpus / "load_settings" / "smallest", SmallestSettingsBytes());
    return 0;
}
