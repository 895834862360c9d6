#include "shell/about.h"

#include <string>

#include "dictionary/dictionary.h"
#include "platform/boxes.h"
#include "platform/processes.h"
#include "update/update_server.h"

namespace {

constexpr int NormalWindow = 1;

void OpenPage(const std::string& address) {
    if (platform::StartProgram(address, NormalWindow)) return;
    platform::ShowBox(Translate1("The web page '%1' cannot be opened.", address), Translate("About Tessarine"),
                      platform::BoxIcon::Error);
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
