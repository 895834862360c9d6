#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/instances.h"
#include "platform/load.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/tray.h"
#include "platform/window_services.h"
#include "simulated/desktop.h"

using namespace simulated;
using testing::ElementsAre;

TEST(Boxes, PumpWhileTheyAreOpen) {
    const WindowHandle editor = AddWindow({.caption = "editor"});
    std::string story;
    After(400, [&story] { story += "handler "; });
    AnswerNextBox({.yes = true, .afterMs = 500, .whileOpen = [&story] {
                       story += platform::CaptionOf(platform::ForegroundWindow()) + " ";
                   }});
    EXPECT_TRUE(platform::AskYesNo("Stop?", "Tessarine"));
    EXPECT_EQ(story, "Tessarine handler ");
    EXPECT_EQ(platform::TickCount(), 500);
    EXPECT_EQ(platform::ForegroundWindow(), editor);
    EXPECT_EQ(UnansweredQuestions(), 0);
}

TEST(Boxes, OpenInsideOneAnotherAndWithoutAnAnswer) {
    AnswerNextBox({.whileOpen = [] { platform::AskYesNo("inner", "t"); }});
    platform::ShowBox("outer", "t", platform::BoxIcon::Error);
    platform::ShowBox("plain", "t");
    ASSERT_EQ(ShownBoxes().size(), 3u);
    EXPECT_EQ(ShownBoxes()[0].text, "outer");
    EXPECT_EQ(ShownBoxes()[0].icon, platform::BoxIcon::Error);
    EXPECT_TRUE(ShownBoxes()[0].scripted);
    EXPECT_EQ(ShownBoxes()[1].text, "inner");
    EXPECT_FALSE(ShownBoxes()[1].yes) << "an unanswered question gets No";
    EXPECT_EQ(UnansweredQuestions(), 1);

    AnswerNextFolder("C:\\Jobs");
    EXPECT_EQ(platform::BrowseForFolder("Where?", "C:\\"), "C:\\Jobs");
    EXPECT_EQ(platform::BrowseForFolder("Where?", "C:\\"), std::nullopt);
}

TEST(Surroundings, RegistryIgnoresCaseAndCanRefuse) {
    EXPECT_TRUE(platform::WriteRegistry("Software\\Tessarine", "DataDir", "C:\\Data"));
    EXPECT_EQ(platform::ReadRegistry("software\\tessarine", "DATADIR"), "C:\\Data");
    RefuseRegistry();
    EXPECT_FALSE(platform::WriteRegistry("Software\\Tessarine", "DataDir", "D:\\"));
    EXPECT_FALSE(platform::DeleteRegistryValue("Software\\Tessarine", "DataDir"));
    EXPECT_TRUE(platform::DeleteRegistryValue("Software\\Tessarine", "Language")) << "was never there";
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "DataDir"), "C:\\Data");
    RefuseRegistry(false);
    EXPECT_TRUE(platform::DeleteRegistryValue("Software\\Tessarine", "DataDir"));
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine", "DataDir"), std::nullopt);
}

TEST(Surroundings, TheTrayTellsItsWindow) {
    const WindowHandle form = AddWindow({.thread = OwnThread, .visible = false});
    std::vector<std::intptr_t> heard;
    OnMessage(form, [&heard](const Message& message) {
        if (message.message == 512) heard.push_back(message.lParam);
    });
    UserOnTray(0x202);
    RefuseTray();
    EXPECT_FALSE(platform::AddTrayIcon(form, "tip"));
    RefuseTray(false);
    EXPECT_FALSE(platform::ChangeTrayTip("too early"));
    EXPECT_TRUE(platform::AddTrayIcon(form, std::string(200, 't')));
    EXPECT_FALSE(platform::AddTrayIcon(form, "twice"));
    EXPECT_EQ(Tray().tip.size(), 127u);
    UserOnTray(0x205);
    EXPECT_TRUE(heard.empty());
    platform::Pump();
    EXPECT_THAT(heard, ElementsAre(0x205));
    platform::RemoveTrayIcon();
    EXPECT_FALSE(Tray().present);
}

TEST(Surroundings, AStartedProgramShowsItsWindow) {
    ProgramShows("notepad", 500, {.className = "Notepad", .caption = "Untitled - Notepad"});
    EXPECT_TRUE(platform::StartProgram("C:\\Windows\\notepad.exe a.txt", 1));
    EXPECT_TRUE(platform::StartProgram("calc.exe", 2));
    RefuseStarts();
    EXPECT_FALSE(platform::StartProgram("notepad.exe", 1));
    platform::Sleep(499);
    EXPECT_EQ(platform::FindTopWindow("Notepad", "Untitled - Notepad"), 0);
    platform::Sleep(1);
    EXPECT_NE(platform::FindTopWindow("Notepad", "Untitled - Notepad"), 0);
    ASSERT_EQ(StartedPrograms().size(), 2u);
    EXPECT_EQ(StartedPrograms()[1].windowStyle, 2);
}

TEST(Surroundings, SentMessagesAreDealtWithBeforeTheCallReturns) {
    const WindowHandle first = AddWindow({.caption = "first instance", .thread = 9});
    OnMessage(first, [](const Message& message) {
        if (message.bytes == "-run job.tsj") platform::Sleep(700);
    });
    platform::SendCopyData(first, "-run job.tsj");
    EXPECT_EQ(platform::TickCount(), 700);
    platform::SendPlainMessage(first, 123456);
    platform::SendPlainMessage(0, 1);
    ASSERT_EQ(SentMessages().size(), 3u);
    EXPECT_EQ(SentMessages()[0].message.lParam, 3);
    EXPECT_EQ(SentMessages()[1].message.message, 123456u);
    EXPECT_EQ(SentMessages()[1].message.wParam, 1);
}

TEST(Surroundings, TheLoadFollowsItsScript) {
    ScriptLoad({70, std::nullopt, 3});
    std::vector<std::optional<int>> heard;
    for (int i = 0; i < 5; ++i) heard.push_back(platform::ProcessorLoad());
    EXPECT_THAT(heard, ElementsAre(std::nullopt, 70, std::nullopt, 3, 3));
}
