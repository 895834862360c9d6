#include "replay/replay_log.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

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

std::string WholeFile(const std::string& path) {
    constexpr std::int64_t Block = 64LL * 1024;
    InputFile file(path);
    std::string text;
    for (std::int64_t left = file.Length(); left > 0; left -= Block) {
        const auto size = static_cast<std::size_t>(std::min(left, Block));
        text.append(file.Take(size), size);
    }
    return text;
}

// Line by line, each with a line end of its own: a log that somebody edited may have lost some. One that is held and
// does not come free is a failure: it must not be replaced as if there were nothing in it.
std::string OldText(const std::string& path) {
    if (platform::StateOf(path) == platform::FileState::Missing) return {};
    const std::string old = WholeFile(path);
    std::string text;
    for (std::string_view rest = old; !rest.empty();) {
        std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        text.append(line).append(LineBreak);
    }
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

// The new text is always longer than the old one, so nothing of the old file is left behind it.
void WriteLogFile(const std::string& path) {
    std::string text = replayLog.LogBuffer;
    for (int i = 0; i < 3; ++i) text += LineBreak;
    text += OldText(path) + LineBreak;
    SaveFile file(path);
    file.Write(text.data(), text.size());
    file.Commit();
    replayLog.LogBuffer.clear();
}
