#include "makeexe/make_executable.h"

#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "makeexe/made_executable.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/shell_folders.h"
#include "platform/text.h"
#include "settings/folders.h"
#include "storage/archive.h"
#include "storage/input_file.h"

namespace {

constexpr const char* Extension = ".exe";

std::string RunnerPath() {
    return folders.ProgramFolder + "\\execreator.bin";
}

bool RunnerIsThere() {
    if (platform::StateOf(RunnerPath()) != platform::FileState::Missing) return true;
    // Nothing quits, whatever the text says.
    platform::ShowBox("File '" + RunnerPath() + "' is missing" + LineBreak + "Press OK to quit",
                      "Cannot create .exe file", platform::BoxIcon::Error);
    return false;
}

std::string ChoosePath(const std::string& jobPath) {
    std::string path = platform::AskFileToSave(Translate("Make .exe file"), "Win32 .exe", Extension,
                                               folders.DesktopFolder + "\\" + BaseName(jobPath) + Extension);
    if (!path.empty() && !platform::LowerCase(path).ends_with(Extension)) path += Extension;
    return path;
}

// An empty file is none: neither a runner nor a job can be.
std::vector<char> AllOf(const std::string& path) {
    InputFile file(path);
    if (file.Length() == 0) throw RuntimeFailure(FailureKind::Overflow, "The file '" + path + "' is empty.");
    const auto size = static_cast<std::size_t>(file.Length());
    const char* const bytes = file.Take(size);
    return {bytes, bytes + size};
}

}  // namespace

void WriteMadeExecutable(const std::string& path, const std::string& runner, std::int16_t language,
                         const std::string& jobPath, OldTail oldTail) {
    const std::vector<char> runnerBytes = AllOf(runner);
    const std::vector<char> job = AllOf(jobPath);
    char languageBytes[LanguageSize];
    little_endian::Store(languageBytes, language);
    SaveFile file(path);
    file.Write(runnerBytes.data(), runnerBytes.size());
    file.Write(languageBytes, sizeof languageBytes);
    file.Write(job.data(), job.size());
    file.Commit(oldTail);
}

void MakeExe(const std::string& jobPath) {
    if (!RunnerIsThere()) return;
    const std::string path = ChoosePath(jobPath);
    if (path.empty()) return;
    try {
        WriteMadeExecutable(path, RunnerPath(), GetLanguage(), jobPath, OldTail::Stays);
    } catch (const RuntimeFailure& failure) {
        platform::ShowBox(failure.what(), "Cannot create .exe file", platform::BoxIcon::Error);
        return;
    }
    platform::ShowBox(Translate("File") + " '" + path + "' " + Exclamation("created successfully"), ProductName,
                      platform::BoxIcon::Information);
}
