#include "shell/about.h"

#include <string>

#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "settings/folders.h"
#include "update/update_server.h"

namespace {

constexpr int NormalWindow = 1;

void OpenPage(const std::string& address) {
    if (platform::StartProgram(address, NormalWindow)) return;
    platform::ShowBox(Translate1("The web page '%1' cannot be opened.", address), Translate("About Tessarine"),
                      platform::BoxIcon::Error);
}

void TellHelp(const std::string& text, platform::BoxIcon icon) {
    platform::ShowBox(text, Translate("Help"), icon);
}

}  // namespace

bool HasWebPages() {
    return !UpdateServer().empty();
}

void OpenHomepage() {
    OpenPage(UpdateServer());
}

void OpenSupport() {
    OpenPage(CustomersPage());
}

void OpenHelp() {
    const std::string path = folders.ProgramFolder + "\\Tessarine Help.chm";
    if (platform::StateOf(path) == platform::FileState::Missing) {
        TellHelp(Translate1("The help is not installed: there is no file '%1'.", path), platform::BoxIcon::Warning);
    } else if (!platform::StartProgram("\"" + path + "\"", NormalWindow)) {
        TellHelp(Translate1("The help file '%1' cannot be opened.", path), platform::BoxIcon::Error);
    }
}
