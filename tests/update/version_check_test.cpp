// What the program asks its update server, and what it makes of the answer.
#include "update/version_check.h"

#include "dictionary/dictionary.h"
#include "platform/registry.h"
#include "support/story.h"
#include "update/update_button.h"
#include "update/update_server.h"

namespace {

std::vector<bool> shown;  // the button, whenever it is shown: whether a check is under way

}  // namespace

void update_button_view::Show() {
    shown.push_back(updateButton.underWay);
}

namespace {

constexpr const char* VersionTxt = "https://example.org/t/ver.txt";
const std::string noAnswer = "No connection|An Error occured while trying to collect data!";
const std::string upToDate =
    "No update needed|You are currently using the most recent version of Tessarine, no update necessary.";

void SetServer(const std::string& address) {
    platform::WriteRegistry("Software\\Tessarine", "UpdateServer", address);
}

class VersionCheck : public testing::Test {
protected:
    VersionCheck() { SetServer("https://example.org/t"); }
};

TEST_F(VersionCheck, TellsNewerVersionsFromEverythingElse) {
    const auto newer = [](const std::string& version) {
        return "Version " + version + " is available|New version of Tessarine is available: " + version +
               "\r\nClick OK to open Tessarine Customer Care web page where you can update to latest version.";
    };
    const std::pair<std::string, std::string> cases[] = {{"3.0.7", newer("3.0.7")},
                                                         {"3.1.0", newer("3.1.0")},
                                                         {"9.0.0", newer("9.0.0")},
                                                         {"3.0.6", upToDate},
                                                         {"2.9.9", upToDate},
                                                         {"0.0.0", upToDate},
                                                         {"3.0.10", noAnswer},
                                                         {"10.0", noAnswer},
                                                         {"", noAnswer},
                                                         {"0", noAnswer},
                                                         {"3.0.7\n", noAnswer},
                                                         {" 3.0.7", noAnswer},
                                                         {"3.0.x", noAnswer},
                                                         {"x.0.7", noAnswer},
                                                         {"3.:.7", noAnswer},
                                                         {"3/0.7", noAnswer},
                                                         {"3.0/7", noAnswer},
                                                         {"3..07", noAnswer},
                                                         {"3.0.7" + std::string(1000, '0'), noAnswer}};
    for (const auto& [answer, box] : cases) {
        SCOPED_TRACE(answer);
        simulated::PutPage(VersionTxt, answer);
        CheckForUpdates(1);
        EXPECT_EQ(LastBox(), box);
        const std::size_t before = Boxes().size();
        CheckVersionQuietly();
        EXPECT_EQ(Boxes().size() - before, box == newer(answer) ? 1U : 0U);
    }
    EXPECT_THAT(simulated::StartedPrograms(), IsEmpty()) << "no answer to the box is Cancel";
}

TEST_F(VersionCheck, OpensTheCustomersPageOnOk) {
    simulated::PutPage(VersionTxt, "3.0.7");
    simulated::AnswerNextBox({.yes = true});
    CheckVersionQuietly();
    ASSERT_THAT(simulated::StartedPrograms(), SizeIs(1));
    EXPECT_EQ(simulated::StartedPrograms()[0].commandLine, "https://example.org/t/customers/");
    simulated::RefuseStarts();
    simulated::AnswerNextBox({.yes = true});
    CheckVersionQuietly();
    EXPECT_EQ(LastBox(),
              "Version 3.0.7 is available|The web page 'https://example.org/t/customers/' cannot be opened.");
}

TEST_F(VersionCheck, WaitsForASlowServerForThreeSecondsAtTheStart) {
    simulated::PutPage(VersionTxt, "3.0.7", 3001);
    CheckVersionQuietly();
    EXPECT_EQ(platform::TickCount(), 3000);
    EXPECT_THAT(Boxes(), IsEmpty());
    CheckForUpdates(1);
    EXPECT_THAT(Boxes(), SizeIs(1)) << "who asks has more patience";
}

TEST_F(VersionCheck, WithoutAConnectionAsksNobody) {
    simulated::Disconnect();
    CheckVersionQuietly();
    EXPECT_THAT(Boxes(), IsEmpty());
    CheckForUpdates(1);
    EXPECT_EQ(LastBox(), "No connection|No internet connection detected!");
    ClickCheckForUpdates();
    EXPECT_EQ(LastBox(), "Connection unavailable|Unable to connect to server. Check your internet connection");
    EXPECT_THAT(simulated::FetchedAddresses(), IsEmpty());
}

TEST_F(VersionCheck, WithoutAServerAsksNobody) {
    for (const char* address : {"", "   ", "ftp://example.org/", "C:\\Windows\\calc.exe", "https://a b/", "https:"}) {
        SetServer(address);
        EXPECT_EQ(UpdateServer(), "") << address;
        CheckVersionQuietly();
        EXPECT_THAT(Boxes(), IsEmpty());
    }
    CheckForUpdates(1);
    EXPECT_EQ(LastBox(), "Check for updates|No update server is set up for this copy of Tessarine.");
    EXPECT_THAT(simulated::FetchedAddresses(), IsEmpty());
    SetServer(" HTTP://example.org/ ");
    EXPECT_EQ(VersionFile(), "HTTP://example.org/ver.txt");
}

TEST_F(VersionCheck, KeepsTheButtonBusyUntilItsBoxIsClosed) {
    simulated::PutPage(VersionTxt, "3.0.6");
    simulated::AnswerNextBox({.whileOpen = [] {
        EXPECT_TRUE(updateButton.underWay);
        ClickCheckForUpdates();
    }});
    ClickCheckForUpdates();
    EXPECT_THAT(shown, ElementsAre(true, false));
    EXPECT_THAT(Boxes(), ElementsAre(upToDate));
    EXPECT_THAT(simulated::FetchedAddresses(), ElementsAre(VersionTxt));
}

TEST_F(VersionCheck, TellsInTheLanguageOfTheUser) {
    SetLanguage(LanguageFrench);
    simulated::PutPage(VersionTxt, "3.0.7");
    CheckForUpdates(1);
    EXPECT_THAT(LastBox(), StartsWith("La version 3.0.7 est disponible|Une nouvelle version de Tessarine"));
}

}  // namespace
