#include "jobs/job_parts.h"

#include "jobs/job_fields.h"
#include "storage/input_file.h"

namespace {

template <class Record>
JobParts::Array TakeArray(InputFile& file, std::int32_t count) {
    if (count <= 0) return {count, {}};
    file.RequireRoom(count, RecordSize<Record>());
    const std::size_t size = static_cast<std::size_t>(count) * RecordSize<Record>();
    return {count, {file.Take(size), size}};
}

std::vector<std::string_view> TakeStrings(InputFile& file, std::int32_t count) {
    std::vector<std::string_view> strings;
    if (count <= 0) return strings;
    file.RequireRoom(count, sizeof(std::uint16_t));
    strings.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i) strings.push_back(file.TakeString());
    return strings;
}

}  // namespace

JobParts PartsOfJob(const std::string& name, std::string_view bytes) {
    InputFile file(name, bytes);
    JobParts parts;
    parts.header = {file.Take(RecordSize<JobHeader>()), RecordSize<JobHeader>()};
    const std::int32_t eventCount = file.Count();
    parts.stringCount = file.Count();
    parts.strings = TakeStrings(file, parts.stringCount);
    parts.events = TakeArray<JobEvent>(file, eventCount);
    parts.windows = TakeArray<WindowSignature>(file, file.Count());
    parts.chains = TakeArray<WindowChain>(file, file.Count());
    parts.tail = bytes.substr(bytes.size() - static_cast<std::size_t>(file.Rest()));
    return parts;
}
