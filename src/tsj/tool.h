// What every command of tsj uses: files and standard streams by name, messages, colours, and the exit code.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/exit_codes.h"
#include "jobs/job_records.h"
#include "tsj/streams.h"

inline constexpr const char* StandardStream = "-";

class InputFile;

// What is wrong with a job on this desktop, now. In English, UTF-8.
struct DesktopFinding {
    std::int32_t row = 0;  // as the editor shows it
    std::string what;
    std::string toDo;
};

class Tool {
public:
    explicit Tool(Streams& theStreams) : streams(theStreams) {}

    // A path, or "-" for a standard stream. All fail as the files do (RuntimeFailure, kind File).
    void ReadFrom(const std::string& path, const std::function<void(InputFile&)>& read) const;
    Job ReadJobAt(const std::string& path) const;

    // In one step: the old file or the new one, whole. Nothing of a longer old file stays behind the new bytes.
    void WriteAll(const std::string& path, std::string_view bytes) const;

    // Fails where nothing could be written; nothing is.
    void RequireRoomFor(const std::string& path) const;

    // The same as WriteAll, in blocks: `fill` is called once, with what writes one.
    using Sink = std::function<void(std::string_view)>;
    void WriteBlocks(const std::string& path, const std::function<void(const Sink&)>& fill) const;

    // For failures, which are told in the encoding of the platform's files.
    std::string NameOf(const std::string& path) const {
        return path == StandardStream ? "standard input" : PathOf(path);
    }

    void Print(std::string_view text) const { streams.out(text); }
    const auto& OutStream() const { return streams.out; }
    const auto& ErrorStream() const { return streams.err; }
    void PrintLine(std::string_view text) const;
    std::string AsTyped(const std::string& text) const { return streams.pathAsTyped(text); }
    void Warn(std::string_view text) const;  // "tsj: ...", for a person, beside what the command gives out

    enum class Colour { Red, Green, Yellow, Grey, Bold };
    std::string Coloured(std::string_view text, Colour colour) const;
    bool HasColours() const { return streams.colours; }

    // For long work: tells of it by the percent, where somebody watches.
    std::function<void(std::int64_t done, std::int64_t total)> Progress(const std::string& what) const;

    std::string BesideProgram(const std::string& name) const { return streams.besideProgram(name); }
    std::string PathOf(const std::string& typed) const { return streams.pathOf(typed); }

    bool IsOnWindows() const { return streams.onWindows; }

    // Text of a job, for a person or another program.
    static std::string Utf8(std::string_view text);

    // What `check` asks besides, where a desktop is there to be asked and somebody wants it.
    std::function<std::vector<DesktopFinding>(const Job&)> lookAtDesktop;

    int exitCode = static_cast<int>(ExitCode::Success);
    void EndWith(ExitCode code) { exitCode = static_cast<int>(code); }

private:
    Streams& streams;
};
