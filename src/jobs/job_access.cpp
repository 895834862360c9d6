#include "jobs/job_access.h"

#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "storage/held_file.h"

using platform::FileState;

std::string TextOfHeldFile(const std::string& path) {
    return Translate1("The file '%1' is in use by another program. Please try again in a moment.", path);
}

FileState TellUnlessReadable(const std::string& path, platform::BoxIcon icon) {
    const FileState state = StateOnceFree(path);
    if (state == FileState::Readable) return state;
    const std::string text =
        state == FileState::Held ? TextOfHeldFile(path) : Label("File does not exist") + LineBreak + path;
    platform::ShowBox(text, Translate("File access error"), icon);
    return state;
}
