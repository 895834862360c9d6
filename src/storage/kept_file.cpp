#include "storage/kept_file.h"

#include "platform/files.h"
#include "storage/held_file.h"

namespace {

constexpr int MostKept = 1000;

std::string OtherName(const std::string& path, int number) {
    const std::size_t dot = path.rfind('.');
    const std::string mark = number == 1 ? " (kept)" : " (kept " + std::to_string(number) + ")";
    return path.substr(0, dot) + mark + path.substr(dot);
}

// No value when all are taken, as all are of which a folder that is out of reach will not tell.
std::optional<std::string> FreeName(const std::string& path) {
    for (int number = 1; number <= MostKept; ++number) {
        const std::string name = OtherName(path, number);
        if (platform::StateOf(name) == platform::FileState::Missing) return name;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> KeepUnderAnotherName(const std::string& path) {
    std::optional<std::string> name = FreeName(path);
    if (!name) return std::nullopt;
    platform::MoveResult result = platform::MoveResult::Busy;
    WaitWhileHeld([&] {
        result = platform::MoveFileOver(path, *name);
        return result == platform::MoveResult::Busy;
    });
    if (result != platform::MoveResult::Done) return std::nullopt;
    return name;
}
