#include "update/version_check.h"

#include <algorithm>

#include "base/product.h"
#include "base/text.h"
#include "dictionary/dictionary.h"
#include "dictionary/sentences.h"
#include "platform/boxes.h"
#include "platform/network.h"
#include "platform/processes.h"
#include "update/update_server.h"

namespace {

constexpr std::size_t MostBytes = 64;  // whatever the server sends
constexpr std::int64_t QuietLimitMs = 3000;
constexpr std::int64_t InteractiveLimitMs = 4500;  // Windows calls a window dead after five seconds
constexpr int NormalWindow = 1;

enum class Outcome { NoServer, NoConnection, NoAnswer, UpToDate, Newer };

Outcome OutcomeOf(const std::string& version) {
    if (!IsVersionText(version)) return Outcome::NoAnswer;
    return version > ProductVersion ? Outcome::Newer : Outcome::UpToDate;
}

Outcome AskServer(std::int64_t limitMs, std::string& version) {
    if (UpdateServer().empty()) return Outcome::NoServer;
    if (!platform::IsConnected()) return Outcome::NoConnection;
    version = FetchLatestVersion(limitMs);
    return OutcomeOf(version);
}

void OfferNewer(const std::string& version) {
    const std::string text = Translate1("New version of Tessarine is available: %1", version) + LineBreak +
                             Translate(
                                 "Click OK to open Tessarine Customer Care web page where you can update to "
                                 "latest version.");
    const std::string title = Translate1("Version %1 is available", version);
    if (!platform::AskOkCancel(text, title, platform::BoxIcon::Information)) return;
    if (platform::StartProgram(CustomersPage(), NormalWindow)) return;
    platform::ShowBox(Translate1("The web page '%1' cannot be opened.", CustomersPage()), title,
                      platform::BoxIcon::Error);
}

void TellNoNews(Outcome outcome) {
    switch (outcome) {
        case Outcome::NoServer:
            platform::ShowBox(Translate("No update server is set up for this copy of Tessarine."),
                              Translate("Check for updates"), platform::BoxIcon::Information);
            break;
        case Outcome::NoConnection:
            platform::ShowBox(Exclamation("No internet connection detected"), Translate("No connection"),
                              platform::BoxIcon::Error);
            break;
        case Outcome::NoAnswer:
            platform::ShowBox(Exclamation("An Error occured while trying to collect data"), Translate("No connection"),
                              platform::BoxIcon::Error);
            break;
        default:
            platform::ShowBox(
                Translate("You are currently using the most recent version of Tessarine, no update necessary."),
                Translate("No update needed"), platform::BoxIcon::Information);
    }
}

}  // namespace

void CheckForUpdates(std::int16_t interactive) {
    std::string version;
    const Outcome outcome = AskServer(interactive == 1 ? InteractiveLimitMs : QuietLimitMs, version);
    if (outcome == Outcome::Newer) return OfferNewer(version);
    if (interactive == 1) TellNoNews(outcome);
}

void CheckVersionQuietly() {
    CheckForUpdates(0);
}

std::string FetchLatestVersion(std::int64_t limitMs) {
    return platform::FetchText(VersionFile(), MostBytes, limitMs);
}

bool IsVersionText(const std::string& text) {
    constexpr const char* Form = "0.0.0";
    return std::equal(text.begin(), text.end(), Form, Form + 5,
                      [](char each, char form) { return form == '.' ? each == '.' : each >= '0' && each <= '9'; });
}
