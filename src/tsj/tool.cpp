#include "tsj/tool.h"

#include <array>
#include <memory>

#include "jobs/job_file.h"
#include "platform/text.h"
#include "storage/input_file.h"
#include "storage/save_file.h"

std::string Tool::Utf8(std::string_view text) {
    return platform::ToUtf8(text);
}

void Tool::ReadFrom(const std::string& path, const std::function<void(InputFile&)>& read) const {
    if (path == StandardStream) {
        const std::string bytes = streams.readAll();
        InputFile file(NameOf(path), bytes);
        read(file);
    } else {
        InputFile file(PathOf(path));
        read(file);
    }
}

Job Tool::ReadJobAt(const std::string& path) const {
    Job job;
    ReadFrom(path, [&job](InputFile& file) { ReadJob(file, job); });
    return job;
}

void Tool::WriteAll(const std::string& path, std::string_view bytes) const {
    WriteBlocks(path, [&](const Sink& write) { write(bytes); });
}

void Tool::RequireRoomFor(const std::string& path) const {
    if (path != StandardStream) const SaveFile file(PathOf(path));
}

void Tool::WriteBlocks(const std::string& path, const std::function<void(const Sink&)>& fill) const {
    if (path == StandardStream) {
        fill(streams.out);
        return;
    }
    SaveFile file(PathOf(path));
    fill([&](std::string_view block) { file.Write(block.data(), block.size()); });
    file.Commit(OldTail::Goes);
}

void Tool::PrintLine(std::string_view text) const {
    std::string line(text);
    streams.out(line += '\n');
}

void Tool::Warn(std::string_view text) const {
    streams.err("tsj: " + std::string(text) + "\n");
}

std::string Tool::Coloured(std::string_view text, Colour colour) const {
    // By Colour: SGR codes of terminals.
    static constexpr std::array<const char*, 5> codes = {"31", "32", "33", "90", "1"};
    if (!streams.colours) return std::string(text);
    return "\x1b[" + std::string(codes[static_cast<std::size_t>(colour)]) + "m" + std::string(text) + "\x1b[0m";
}

std::function<void(std::int64_t, std::int64_t)> Tool::Progress(const std::string& what) const {
    if (!streams.progress) return [](std::int64_t, std::int64_t) {};
    return [this, what, told = std::make_shared<std::int64_t>(-1)](std::int64_t done, std::int64_t total) {
        const std::int64_t percent = total == 0 ? 100 : done * 100 / total;
        if (percent == *told) return;
        *told = percent;
        streams.err("\r" + what + ": " + std::to_string(percent) + " %" + (percent == 100 ? "\r\x1b[K" : ""));
    };
}
