#include "shell/session_end.h"

#include <exception>

#include "dictionary/dictionary.h"
#include "recording/recording_state.h"
#include "settings/settings.h"
#include "shell/exit.h"
#include "shell/shell_view.h"

namespace {

// Windows gives a program five seconds here, and more to one that says what it is busy with.
struct BlockedShutdown {
    BlockedShutdown() { shell_view::BlockShutdown(Translate("A recording is being saved.")); }
    ~BlockedShutdown() { shell_view::UnblockShutdown(); }
    BlockedShutdown(const BlockedShutdown&) = delete;
    BlockedShutdown& operator=(const BlockedShutdown&) = delete;
};

void SaveRecording() {
    if (!RecordingActive()) return;
    const BlockedShutdown blocked;
    RescueRecording();
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
    Try(SaveSettings);
    QuitProgram(false);
}
