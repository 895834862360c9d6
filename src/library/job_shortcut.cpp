#include "library/job_shortcut.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "jobs/job_file.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/shortcut.h"
#include "settings/folders.h"

namespace {

std::string LinkPath(const std::string& folder, const std::string& jobName) {
    return folder + "\\" + jobName + ".lnk";
}

std::string DescriptionOf(const std::string& jobPath, const std::string& jobName) {
    const std::string description = CheckJobHeader(jobPath).description;
    return description.empty() ? "Shortcut to Tessarine job '" + jobName + "'" : description;
}

// A file that cannot be read holds nothing.
std::string BytesOf(const std::string& path) {
    platform::File file = platform::File::OpenForReading(path);
    const std::int64_t length = file.IsOpen() ? file.Length() : -1;
    if (length < 0) return "";
    std::string bytes(static_cast<std::size_t>(length), '\0');
    return file.Read(bytes.data(), length) == length ? bytes : "";
}

// The path stands among the link's bytes as plain text; there is no need to understand the rest.
bool PointsAt(const std::string& link, const std::string& jobPath) {
    return BytesOf(link).find(jobPath) != std::string::npos;
}

// A shortcut of the user's own may have the job's name. One that cannot be read is not known to be ours.
bool MayBeWritten(const std::string& link, const std::string& jobPath) {
    if (platform::StateOf(link) == platform::FileState::Missing || PointsAt(link, jobPath)) return true;
    return platform::AskBeforeLoss(Translate1("File \"%1\" already exists", link) + ". " + Question("Overwrite"),
                                   Question("Overwrite"));
}

}  // namespace

void CreateJobShortcut(const std::string& jobPath, const std::string& desktopFolder, const std::string& jobName) {
    if (jobPath.empty() || desktopFolder.empty()) return;
    if (!MayBeWritten(LinkPath(desktopFolder, jobName), jobPath)) return;
    platform::WriteShortcut(LinkPath(desktopFolder, jobName),
                            {jobPath, folders.DataFolder, DescriptionOf(jobPath, jobName)});
}

void MoveJobShortcut(const std::string& oldPath, const std::string& newPath, const std::string& desktopFolder) {
    const std::string name = BaseName(newPath);
    const std::string link = LinkPath(desktopFolder, name);
    if (!PointsAt(link, oldPath)) return;
    platform::WriteShortcut(link, {newPath, folders.DataFolder, DescriptionOf(newPath, name)});
}

void DeleteJobShortcut(const std::string& jobPath, const std::string& desktopFolder, const std::string& jobName) {
    const std::string link = LinkPath(desktopFolder, jobName);
    if (PointsAt(link, jobPath)) platform::RemoveFile(link);
}
