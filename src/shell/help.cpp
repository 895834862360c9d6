#include "shell/help.h"

#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/help.h"
#include "platform/pump.h"
#include "recording/recording_session.h"
#include "replay/run_job.h"
#include "settings/folders.h"
#include "widgets/busy_mark.h"

namespace {

bool opening = false;  // F1 in the box that tells of a missing file is a question for that file, again

bool DesktopIsInUse() {
    return CaptureIsOn() || RunIsUnderWay();
}

void TellHelp(const std::string& text, platform::BoxIcon icon) {
    platform::ShowBox(text, Translate("Help"), icon);
}

void Open(const std::string& topic) {
    if (opening || DesktopIsInUse()) return;
    const BusyMark mark(opening);
    const std::string path = folders.ProgramFolder + "\\Tessarine Help.chm";
    if (platform::StateOf(path) == platform::FileState::Missing) {
        TellHelp(Translate1("The help is not installed: there is no file '%1'.", path), platform::BoxIcon::Warning);
    } else if (!platform::ShowHelp(path, topic)) {
        TellHelp(Translate1("The help file '%1' cannot be opened.", path), platform::BoxIcon::Error);
    }
}

}  // namespace

void OpenHelp(const std::string& topic) {
    platform::CallOutsideHooks([topic] { Open(topic); });
}
