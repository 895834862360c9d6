#include "replay/replay_log.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/text.h"
#include "storage/input_file.h"
#include "storage/save_file.h"

ReplayLog replayLog;

namespace {

std::string TimeText() {
    const platform::LocalTime now = platform::LocalNow();
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", now.hour % 100, now.minute % 100, now.second % 100);
    return text.data();
}

void AppendLineBreaks(int count) {
    for (int i = 0; i < count; ++i) replayLog.LogBuffer += LineBreak;
}

// What stands at the top of the file, up to `most` bytes.
std::string TopOf(InputFile& file, std::size_t most) {
    constexpr std::int64_t Block = 64LL * 1024;
    std::string text;
    for (std::int64_t left = std::min(file.Length(), static_cast<std::int64_t>(most)); left > 0; left -= Block) {
        const auto size = static_cast<std::size_t>(std::min(left, Block));
        text.append(file.Take(size), size);
    }
    return text;
}

// Each line with a line end of its own: a log that somebody edited may have lost some.
std::string WithLineEnds(std::string_view rest) {
    std::string text;
    while (!rest.empty()) {
        std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        text.append(line).append(LineBreak);
    }
    return text;
}

// The runs at the top that fit into `room` as a whole. A run begins with its date, behind a blank line.
void KeepWholeRuns(std::string& text, std::size_t room) {
    constexpr std::size_t blankLine = 4;  // two line ends
    const std::size_t border = room < blankLine ? std::string::npos : text.rfind("\r\n\r\nDate: ", room - blankLine);
    text.resize(border == std::string::npos ? 0 : border + blankLine);
}

// The old runs, as many as there is room for. A log that is held and does not come free is a failure: it must not be
// replaced as if there were nothing in it.
std::string OldText(const std::string& path, std::size_t room) {
    if (platform::StateOf(path) == platform::FileState::Missing) return {};
    InputFile file(path);
    std::string text = WithLineEnds(TopOf(file, room));
    if (file.Length() > static_cast<std::int64_t>(room) || text.size() > room) KeepWholeRuns(text, room);
    return text;
}

}  // namespace

void LogLine(const std::string& line, int before, int after) {
    if (replayLog.LogBuffer.empty()) {
        replayLog.LogBuffer = "Date: " + platform::ShortDateText();
        before = 2;  // the end of the date's own line, and a blank line
    }
    AppendLineBreaks(before);
    replayLog.LogBuffer += TimeText() + "  " + line + LineBreak;
    AppendLineBreaks(after);
}

void WriteLogFile(const std::string& path) {
    if (platform::FolderExists(path)) {
        throw RuntimeFailure(FailureKind::File, "The log '" + path + "' cannot be written: a folder has this name.");
    }
    std::string text = replayLog.LogBuffer;
    for (int i = 0; i < 3; ++i) text += LineBreak;
    const std::size_t newest = text.size() + std::string_view(LineBreak).size();
    text += OldText(path, LargestLog - std::min(newest, LargestLog)) + LineBreak;
    SaveFile file(path);
    file.Write(text.data(), text.size());
    file.Commit(OldTail::Goes);
    replayLog.LogBuffer.clear();
}
