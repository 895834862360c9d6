#include "folding/row_lines.h"

#include <map>

namespace {

std::string Range(std::int32_t first, std::int32_t last) {
    return " " + std::to_string(first) + "-" + std::to_string(last);
}

std::string FlagName(std::int32_t flags) {
    static const std::map<std::int32_t, std::string> names = {
        {MoveFlags, "moves"},
        {MouseFlagBase + platform::MouseLeftDown, "left down"},
        {MouseFlagBase + platform::MouseLeftUp, "left up"},
        {MouseFlagBase + platform::MouseRightDown, "right down"},
        {MouseFlagBase + platform::MouseRightUp, "right up"},
        {MouseFlagBase + platform::MouseMiddleDown, "middle down"},
        {MouseFlagBase + platform::MouseMiddleUp, "middle up"},
        {MouseFlagBase + platform::MouseXDown, "x down"},
        {MouseFlagBase + platform::MouseXUp, "x up"},
        {MouseFlagBase + platform::MouseWheel, "wheel"},
        {DoubleClickFlags, "double click"},
    };
    const auto name = names.find(flags);
    return name == names.end() ? std::to_string(flags) : name->second;
}

std::string LineOf(const MouseRow& row) {
    const std::string end = row.Flags == MoveFlags ? " to " + std::to_string(row.X) + "," + std::to_string(row.Y) : "";
    return FlagName(row.Flags) + Range(row.FirstEvent, row.LastEvent) + end;
}

std::string LineOf(const KeyRow& row) {
    return "keys" + Range(row.FirstEvent, row.LastEvent) + " " + row.Text;
}

}  // namespace

FoldedJob Folded(const Job& job) {
    FoldedJob folded;
    folded.job = job;
    FoldEvents({folded.job.Events, job.Strings, job.Windows, job.Chains}, folded, &folded.job.Events);
    BuildRowOrder(folded);
    return folded;
}

std::vector<std::string> FoldedLines(const Job& job) {
    return LinesOf(Folded(job));
}

std::vector<std::string> LinesOf(const FoldedRows& folded) {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < folded.RowKind.size(); ++i) {
        const auto index = static_cast<std::size_t>(folded.RowIndex[i]);
        lines.push_back(folded.RowKind[i] == MouseRowKind ? LineOf(folded.MouseRows.at(index))
                                                          : LineOf(folded.KeyRows.at(index)));
    }
    return lines;
}

std::vector<std::string> LinesOf(const std::vector<ActionRow>& rows) {
    std::vector<std::string> lines;
    for (const ActionRow& row : rows) {
        const bool mouse = row.kind == MouseActionRow;
        lines.push_back((mouse ? FlagName(row.flags) : "keys") + Range(row.firstEvent, row.lastEvent) +
                        (mouse ? "" : " " + row.text) + (row.windowName.empty() ? "" : " @ " + row.windowName));
    }
    return lines;
}
