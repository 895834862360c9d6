#include "shell/session_end.h"

#include <exception>
#include <string>

#include "dictionary/dictionary.h"
#include "editor/edit_job.h"
#include "editor/row_edits.h"
#include "editor/save_job.h"
#include "recording/recording_state.h"
#include "settings/settings.h"
#include "shell/exit.h"
#include "shell/shell_view.h"

namespace {

// Windows gives a program five seconds here, and more to one that says what it is busy with.
struct BlockedShutdown {
    explicit BlockedShutdown(const std::string& why) { shell_view::BlockShutdown(why); }
    ~BlockedShutdown() { shell_view::UnblockShutdown(); }
    BlockedShutdown(const BlockedShutdown&) = delete;
    BlockedShutdown& operator=(const BlockedShutdown&) = delete;
};

void SaveRecording() {
    if (!RecordingActive()) return;
    const BlockedShutdown blocked(Translate("A recording is being saved."));
    RescueRecording();
}

void SaveEditedJob() {
    if (!EditorIsOpen() || !SaveIsEnabled()) return;
    const BlockedShutdown blocked(Translate("A changed job is being saved."));
    RescueEditedJob();
}

template <class Call>
void Try(const Call& call) {
    try {
        call();
    } catch (const std::exception&) {
    }
}

}  // namespace

void EndWithSession() {
    Try(SaveRecording);
    Try(SaveEditedJob);
    Try(SaveSettings);
    QuitProgram(false);
}
