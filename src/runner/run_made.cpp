#include "runner/run_made.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "makeexe/made_executable.h"
#include "platform/boxes.h"
#include "replay/reach.h"
#include "replay/run_job.h"
#include "settings/settings.h"

namespace {

void Tell(const std::string& text) {
    platform::ShowBox(text, ProductName, platform::BoxIcon::Error);
}

std::optional<MadeExecutable> ReadOrTell(const std::string& path) {
    try {
        MadeExecutable made = ReadMadeExecutable(path);
        UseLanguage(made.language);
        if (!made.job.Events.empty()) return made;
        Tell(Translate("There is nothing to play: the job is empty."));
    } catch (const RuntimeFailure& failure) {
        Tell(failure.what());
    }
    return std::nullopt;
}

ExitCode Play(Job job, const std::string& name) {
    try {
        return ExitCodeOf(RunLoadedJob(std::move(job), name));
    } catch (const RuntimeFailure& failure) {
        Tell(failure.what());
        return ExitCodeOf(failure);
    }
}

}  // namespace

ExitCode RunMade(const std::string& path) {
    auto made = ReadOrTell(path);
    if (!made) return ExitCode::NothingToPlay;
    if (!DesktopReachable()) return ExitCode::DesktopUnreachable;
    // The options of the main program's user do not come along; what a run can show is shown.
    settings.Display_Executing_Status = 1;
    return Play(std::move(made->job), BaseName(path));
}
