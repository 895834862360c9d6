// One job with something of everything, as records and as the bytes of its file; and jobs as text, to compare them.
#pragma once

#include <string>

#include "jobs/job_fields.h"
#include "jobs/job_file.h"
#include "support/file_bytes.h"

inline const std::string jobPath = "C:\\data\\sample.tsj";

inline JobEvent SampleEvent(const std::array<std::int32_t, 7>& words, std::int32_t chain, std::int32_t wait,
                            std::uint8_t ifNoWindow) {
    JobEvent event;
    event.word = words;
    event.WindowChainIndex = chain;
    event.WaitForWindow = wait;
    event.IfNoWindow = ifNoWindow;
    return event;
}

inline Job SampleJob() {
    Job job;
    job.Version = 300;
    job.StartProgram = {"C:\\Windows\\notepad.exe", "/p \"a b\"", 3};
    job.Description = "Fills the form";
    job.DurationMs = 2600;
    job.SpeedPercent = 50;
    job.SkipMouseMoves = 1;
    job.CapsLockState = 1;
    job.RepeatCount = 7;
    job.SafetyLevel = 2;
    job.SimilarWindowNames = 1;
    job.Strings = {"abc [ENTER]", "", "\xE4\xF6"};
    job.Events = {SampleEvent({0, 640, -3, 0, 0x8001, 900, 0}, NoWindowMarker, 0, 0),
                  SampleEvent({0, 10, 20, 0, 0x8002, 1000, 0}, 0, 10, 2),
                  SampleEvent({1, 0x1E0041, 2, 1300, 0, 0, 0}, -1, 0, 0)};
    job.Windows = {{{44, 2, 3, {-1, -2}, {-3, -4}, {5, 6, 700, 800}}, "Untitled - Notepad", "Notepad", 0},
                   {{44, 0, 1, {}, {}, {0, 0, 600, 500}}, "", "Edit", 15}};
    WindowChain chain;
    chain.LeafWindow = 1;
    chain.Path[0] = 1;
    chain.Path[255] = 9;
    chain.Depth = 1;
    job.Chains = {chain};
    return job;
}

// The same job, byte by byte.
inline std::string SampleBytes() {
    FileBytes file;
    file.Int32(300).Text("C:\\Windows\\notepad.exe", 800).Text("/p \"a b\"", 300).Int16(3);
    file.Text("Fills the form", 1000).Int32(2600).Int32(50).Int32(1).Int32(1).Int32(7).Int32(2).Int32(1);
    file.Int32(3).Int32(3);
    file.Int16(11).Raw("abc [ENTER]").Int16(0).Int16(2).Raw("\xE4\xF6");
    file.Int32(0).Int32(640).Int32(-3).Int32(0).Int32(0x8001).Int32(900).Int32(0).Int32(0xF0000001).Int32(0).Byte(0);
    file.Int32(0).Int32(10).Int32(20).Int32(0).Int32(0x8002).Int32(1000).Int32(0).Int32(0).Int32(10).Byte(2);
    file.Int32(1).Int32(0x1E0041).Int32(2).Int32(1300).Int32(0).Int32(0).Int32(0).Int32(-1).Int32(0).Byte(0);
    file.Int32(2);
    file.Int32(44).Int32(2).Int32(3).Int32(-1).Int32(-2).Int32(-3).Int32(-4).Int32(5).Int32(6).Int32(700).Int32(800);
    file.Text("Untitled - Notepad", 1024).Text("Notepad", 100).Int32(0);
    file.Int32(44).Int32(0).Int32(1).Words(4, 0).Int32(0).Int32(0).Int32(600).Int32(500);
    file.Text("", 1024).Text("Edit", 100).Int32(15);
    file.Int32(1);
    file.Int32(1).Int32(1).Words(254, 0).Int32(9).Int32(1);
    return file;
}

// Where the counts of the sample's file lie.
inline constexpr std::size_t EventCountAt = 2134;
inline constexpr std::size_t StringCountAt = 2138;
inline constexpr std::size_t WindowCountAt = 2142 + (2 + 11) + 2 + (2 + 2) + 3 * 37;
inline constexpr std::size_t ChainCountAt = WindowCountAt + 4 + std::size_t{2} * 1172;

// All of a job, one field a line.
inline std::string Dump(const Job& job) {
    TextDump dump;
    dump.Add<JobHeader>("job", job);
    for (const std::string& text : job.Strings) dump.Text("string", text, 0);
    for (const JobEvent& event : job.Events) dump.Add("event", event);
    for (const WindowSignature& window : job.Windows) dump.Add("window", window);
    for (const WindowChain& chain : job.Chains) dump.Add("chain", chain);
    return dump.text;
}
