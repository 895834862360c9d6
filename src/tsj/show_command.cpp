// tsj show: a job as a person reads it, or as JSON for a program.
#include <CLI/CLI.hpp>
#include <memory>

#include "base/arithmetic.h"
#include "folding/popuni_listu.h"
#include "folding/row_texts.h"
#include "tsj/commands.h"
#include "tsj/json.h"
#include "tsj/table.h"
#include "tsj/tool.h"
#include "tsj/words.h"

namespace {

struct ShowOptions {
    std::string job;
    bool events = false;
    bool json = false;
};

std::string Quoted(const std::string& text) {
    return "\"" + Tool::Utf8(text) + "\"";
}

std::string PlaceOf(const WindowSignature& window) {
    const platform::Rect& place = window.Placement.rcNormalPosition;
    return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
           std::to_string(place.right - place.left) + "x" + std::to_string(place.bottom - place.top);
}

std::string HeaderText(const JobHeader& job) {
    std::string text;
    const auto add = [&](const std::string& name, const std::string& value) {
        text += name + std::string(14 - name.size(), ' ') + value + "\n";
    };
    if (!job.Description.empty()) add("Description", Tool::Utf8(job.Description));
    if (!job.StartProgram.ProgramPath.empty()) {
        add("Starts", Tool::Utf8(job.StartProgram.ProgramPath + " " + job.StartProgram.CommandLine));
    }
    add("Duration", timeStr(job.DurationMs));
    add("Speed", SpeedWords(job.SpeedPercent));
    add("Repeats", job.RepeatCount == 0 ? "over and over again" : std::to_string(job.RepeatCount));
    add("Safety", SafetyWord(job.SafetyLevel));
    add("Captions", job.SimilarWindowNames == 1 ? "similar ones will do" : "exactly as recorded");
    add("Mouse moves", job.SkipMouseMoves == 1 ? "left out" : "played");
    return text;
}

std::string WindowsText() {
    Table table({"Window", "Caption", "Class", "Control", "Place"});
    for (std::size_t i = 0; i < editState.Windows.size(); ++i) {
        const WindowSignature& window = editState.Windows[i];
        table.Add({std::to_string(i), Quoted(window.Caption), Tool::Utf8(window.ClassName),
                   std::to_string(window.ControlId), PlaceOf(window)});
    }
    return table.Text();
}

std::vector<std::string> RowCells(std::int32_t row) {
    std::vector<std::string> cells;
    for (const std::string& column : RowColumns(row)) cells.push_back(Tool::Utf8(column));
    return cells;
}

std::string RowsText() {
    Table table({"No", "With", "Action", "Delay", "Start time", "Duration", "Window", "Coordinates, keystrokes"});
    for (std::size_t row = 0; row < editState.RowIndex.size(); ++row) {
        table.Add(RowCells(static_cast<std::int32_t>(row)));
    }
    return table.Text();
}

std::string EventsText() {
    Table table({"Event", "Time", "What", "Data", "Chain", "Wait", "Without window"});
    for (std::size_t i = 0; i < editState.PristineEvents.size(); ++i) {
        const JobEvent& event = editState.PristineEvents[i];
        table.Add({std::to_string(i), std::to_string(event.time()), EventWord(event), EventData(event),
                   event.WindowChainIndex < 0 ? "-" : std::to_string(event.WindowChainIndex),
                   std::to_string(event.WaitForWindow), IfNoWindowWord(event.IfNoWindow)});
    }
    return table.Text();
}

Json WindowsJson() {
    Json windows = Json::array();
    for (const WindowSignature& window : editState.Windows) windows.push_back(WindowJson(window));
    return windows;
}

Json RowsJson() {
    Json rows = Json::array();
    for (std::size_t i = 0; i < editState.RowIndex.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i);
        const std::vector<std::string> cells = RowCells(row);
        rows.push_back({{"row", cells[0].empty() ? Json() : Json(editState.RowNumber[i])},  // moves have no number
                        {"with", cells[1]},
                        {"action", cells[2]},
                        {"delayMs", DelayOf(row)},
                        {"startMs", Event_StartTime(row)},
                        {"durationMs", DurationOf(row)},
                        {"window", cells[6]},
                        {"text", cells[7]}});
    }
    return rows;
}

Json EventsJson() {
    Json events = Json::array();
    for (const JobEvent& event : editState.PristineEvents) {
        events.push_back({{"timeMs", event.time()},
                          {"what", EventWord(event)},
                          {"data", EventData(event)},
                          {"chain", event.WindowChainIndex < 0 ? Json() : Json(event.WindowChainIndex)},
                          {"waitSeconds", event.WaitForWindow},
                          {"withoutWindow", IfNoWindowWord(event.IfNoWindow)}});
    }
    return events;
}

Json HeaderJson(const JobHeader& job) {
    return {{"description", Tool::Utf8(job.Description)},
            {"program", Tool::Utf8(job.StartProgram.ProgramPath)},
            {"parameters", Tool::Utf8(job.StartProgram.CommandLine)},
            {"durationMs", job.DurationMs},
            {"speedPercent", job.SpeedPercent},
            {"repeats", job.RepeatCount},
            {"safety", SafetyWord(job.SafetyLevel)},
            {"similarCaptions", job.SimilarWindowNames == 1},
            {"skipsMouseMoves", job.SkipMouseMoves == 1}};
}

void PrintJson(const ShowOptions& options, const Tool& tool) {
    Json all = {{"job", options.job}, {"header", HeaderJson(editState.header)}, {"windows", WindowsJson()}};
    all["rows"] = RowsJson();
    if (options.events) all["events"] = EventsJson();
    tool.PrintLine(Indented(all));
}

void Show(const ShowOptions& options, Tool& tool) {
    OpenAsRows(tool.ReadJobAt(options.job), options.job);
    if (options.json) {
        PrintJson(options, tool);
        return;
    }
    tool.Print(HeaderText(editState.header) + "\n");
    tool.Print(WindowsText() + "\n");
    tool.Print(options.events ? EventsText() : RowsText());
}

}  // namespace

void AddShow(CLI::App& tsj, Tool& tool) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App* const show = tsj.add_subcommand("show", "Shows a job: options, windows, and rows as the editor has them");
    show->add_option("JOB", options->job, "the job file, or - for standard input")->required();
    show->add_flag("--events", options->events, "the events one by one");
    show->add_flag("--json", options->json, "for a program to read");
    show->callback([options, &tool] { Show(*options, tool); });
}
