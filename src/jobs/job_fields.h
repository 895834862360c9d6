// The layout of a job's records in a file, field by field. docs/job_format.md shows the same as tables.
#pragma once

#include "jobs/job_records.h"
#include "storage/archive.h"

// Bytes of the fixed texts.
inline constexpr std::size_t ProgramPathWidth = 800;
inline constexpr std::size_t CommandLineWidth = 300;
inline constexpr std::size_t DescriptionWidth = 1000;
inline constexpr std::size_t CaptionWidth = 1024;
inline constexpr std::size_t ClassNameWidth = 100;

template <class Archive>
void Fields(Archive& file, In<Archive, StartProgramRecord>& program) {
    file.Text("ProgramPath", program.ProgramPath, ProgramPathWidth);
    file.Text("CommandLine", program.CommandLine, CommandLineWidth);
    file.Int16("WindowStyle", program.WindowStyle);
}

template <class Archive>
void Fields(Archive& file, In<Archive, JobHeader>& job) {
    file.Int32("Version", job.Version);
    Fields(file, job.StartProgram);
    file.Text("Description", job.Description, DescriptionWidth);
    file.Int32("DurationMs", job.DurationMs);
    file.Int32("SpeedPercent", job.SpeedPercent);
    file.Int32("SkipMouseMoves", job.SkipMouseMoves);
    file.Int32("CapsLockState", job.CapsLockState);
    file.Int32("RepeatCount", job.RepeatCount);
    file.Int32("SafetyLevel", job.SafetyLevel);
    file.Int32("SimilarWindowNames", job.SimilarWindowNames);
}

// The words of an event have several names; those of the mouse stand here.
template <class Archive>
void Fields(Archive& file, In<Archive, JobEvent>& event) {
    file.Int32("dwType", event.word[0]);
    file.Int32("dx", event.word[1]);
    file.Int32("dy", event.word[2]);
    file.Int32("mouseData", event.word[3]);
    file.Int32("dwFlags", event.word[4]);
    file.Int32("time", event.word[5]);
    file.Int32("dwExtraInfo", event.word[6]);
    file.Int32("WindowChainIndex", event.WindowChainIndex);
    file.Int32("WaitForWindow", event.WaitForWindow);
    file.UInt8("IfNoWindow", event.IfNoWindow);
}

template <class Archive>
void Fields(Archive& file, In<Archive, platform::Point>& point) {
    file.Int32("x", point.x);
    file.Int32("y", point.y);
}

template <class Archive>
void Fields(Archive& file, In<Archive, platform::Rect>& rect) {
    file.Int32("left", rect.left);
    file.Int32("top", rect.top);
    file.Int32("right", rect.right);
    file.Int32("bottom", rect.bottom);
}

template <class Archive>
void Fields(Archive& file, In<Archive, platform::WindowPlacement>& placement) {
    file.UInt32("length", placement.length);
    file.UInt32("flags", placement.flags);
    file.UInt32("showCmd", placement.showCmd);
    Fields(file, placement.ptMinPosition);
    Fields(file, placement.ptMaxPosition);
    Fields(file, placement.rcNormalPosition);
}

template <class Archive>
void Fields(Archive& file, In<Archive, WindowSignature>& window) {
    Fields(file, window.Placement);
    file.Text("Caption", window.Caption, CaptionWidth);
    file.Text("ClassName", window.ClassName, ClassNameWidth);
    file.Int32("ControlId", window.ControlId);
}

template <class Archive>
void Fields(Archive& file, In<Archive, WindowChain>& chain) {
    file.Int32("LeafWindow", chain.LeafWindow);
    file.Words("Path", chain.Path);
    file.Int32("Depth", chain.Depth);
}
