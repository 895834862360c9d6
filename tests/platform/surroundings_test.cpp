#include <gtest/gtest.h>

#include "base/runtime_failure.h"
#include "contract_desktop.h"
#include "platform/boxes.h"
#include "platform/clock.h"
#include "platform/instances.h"
#include "platform/load.h"
#include "platform/network.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/sound.h"
#include "platform/text.h"
#include "platform/timers.h"
#include "platform/window_services.h"

using contract::OtherProgram;
using contract::Within;
using platform::WindowHandle;

namespace {

// --- Timers ---

TEST(Timers, RunInsideThePumpOnly) {
    int ticks = 0;
    const platform::TimerId timer = platform::StartTimer(30, [&] { ++ticks; });
    ASSERT_NE(timer, 0);
    platform::Sleep(150);
    EXPECT_EQ(ticks, 0);
    platform::Pump();
    EXPECT_EQ(ticks, 1) << "a late pump gets one call, not several";
    platform::StopTimer(timer);
    platform::Sleep(60);
    platform::Pump();
    EXPECT_EQ(ticks, 1);
    platform::StopTimer(timer);
    platform::StopTimer(0);
}

TEST(Timers, ADueTickOfAStoppedTimerIsForgotten) {
    int ticks = 0;
    platform::TimerId second = 0;
    const platform::TimerId first = platform::StartTimer(20, [&] { platform::StopTimer(second); });
    second = platform::StartTimer(20, [&] { ++ticks; });
    EXPECT_NE(first, second);
    platform::StopTimer(second);
    platform::Sleep(100);
    platform::Pump();
    EXPECT_EQ(ticks, 0);
    platform::StopTimer(first);
}

TEST(Timers, AHandlerMayStopItselfAndPump) {
    int once = 0;
    int inner = 0;
    platform::TimerId timer = 0;
    const std::string keptAlive(100, 'k');
    timer = platform::StartTimer(20, [&once, &timer, keptAlive] {
        platform::StopTimer(timer);
        once += keptAlive == std::string(100, 'k') ? 1 : 100;
    });
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return once > 0; }));
    Within(100, [] { return false; });
    EXPECT_EQ(once, 1);

    const platform::TimerId other = platform::StartTimer(20, [&] { ++inner; });
    bool sawInner = false;
    timer = platform::StartTimer(20, [&] {
        platform::StopTimer(timer);
        const int before = inner;
        sawInner = Within(contract::PatienceMs, [&] { return inner > before; });
    });
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return sawInner; }))
        << "other timers run in a pump inside a handler";
    platform::StopTimer(other);
}

TEST(Timers, AFailureInAHandlerIsShown) {
    int ticks = 0;
    platform::TimerId timer = 0;
    const std::string shown = contract::BoxDuring([&] {
        timer = platform::StartTimer(20, [&] {
            if (++ticks == 1) throw RuntimeFailure(FailureKind::File, "The file a.tsj is gone.");
        });
        Within(contract::PatienceMs, [&] { return ticks >= 2; });
    });
    EXPECT_EQ(shown, "Tessarine|The file a.tsj is gone.");
    EXPECT_GE(ticks, 2) << "the timer goes on";
    platform::StopTimer(timer);
}

// --- Boxes ---

TEST(Boxes, GiveTheAnswerOfTheUser) {
    EXPECT_EQ(contract::BoxDuring([] { platform::ShowBox("It is done.", "Title", platform::BoxIcon::Error); }),
              "Title|It is done.");
    for (const bool yes : {true, false}) {
        bool answer = !yes;
        contract::BoxDuring([&] { answer = platform::AskYesNo("Really?", "Title"); }, yes);
        EXPECT_EQ(answer, yes);
    }
}

// --- Registry ---

TEST(Registry, KeepsText) {
    const std::string key = "Software\\Tessarine contract\\inner";
    EXPECT_TRUE(platform::DeleteRegistryValue(key, "text")) << "gone already";
    EXPECT_FALSE(platform::ReadRegistry(key, "text").has_value());
    for (const std::string& text : {std::string("C:\\Some folder"), std::string(), std::string(3000, 'x')}) {
        EXPECT_TRUE(platform::WriteRegistry(key, "text", text));
        EXPECT_EQ(platform::ReadRegistry(key, "text"), text);
        EXPECT_EQ(platform::ReadRegistry("SOFTWARE\\TESSARINE contract\\inner", "TEXT"), text);
    }
    EXPECT_FALSE(platform::ReadRegistry(key, "other").has_value());
    EXPECT_TRUE(platform::DeleteRegistryValue(key, "text"));
    EXPECT_FALSE(platform::ReadRegistry(key, "text").has_value());
}

// --- Text ---

TEST(Text, IsInTheCodePage) {
    EXPECT_EQ(platform::FromUtf8("R\xC3\xA9sum\xC3\xA9 \xE2\x82\xAC"), "R\xE9sum\xE9 \x80");
    EXPECT_EQ(platform::ToUtf8("R\xE9sum\xE9 \x80"), "R\xC3\xA9sum\xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(platform::FromUtf8("a\xE6\x97\xA5z"), "a?z") << "not in the code page";
    EXPECT_EQ(platform::FromUtf8(""), "");
    EXPECT_EQ(platform::LowerCase("\xC4 PFEL.TSJ 1"), "\xE4 pfel.tsj 1");
    EXPECT_EQ(platform::UpperCase("\xF1 \xE9t\xE9"), "\xD1 \xC9T\xC9");
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    EXPECT_EQ(platform::FromUtf8(platform::ToUtf8(all)), all);
}

TEST(Text, IsInAnyCodePageByItsNumber) {
    const int system = platform::SystemCodePage();
    EXPECT_EQ(system, 1252);
    EXPECT_EQ(platform::FromUtf8("\xC3\xA9\xE6\x97\xA5", system), "\xE9?");
    EXPECT_EQ(platform::ToUtf8("\xE9", system), "\xC3\xA9");
    for (const int unknown : {-1, 0, 1, 3, 42, 77777}) {
        EXPECT_FALSE(platform::FromUtf8("a", unknown).has_value()) << unknown;
        EXPECT_FALSE(platform::ToUtf8("a", unknown).has_value()) << unknown;
    }
    if (!contract::Desktop().knowsAllCodePages) return;
    EXPECT_EQ(platform::FromUtf8("\xD0\x96", 1251), "\xC6");
    EXPECT_EQ(platform::ToUtf8("\xC6", 1251), "\xD0\x96");
    EXPECT_EQ(platform::ToUtf8("\xC3\xA9", 65001), "\xC3\xA9");
}

// --- Sounds ---

// With a device or without one.
TEST(Sounds, NeverHoldTheProgramUp) {
    platform::StartSound(0);
    platform::Sound tick{.channels = 1, .samplesPerSecond = 22050, .bitsPerSample = 16, .samples = {}};
    tick.samples.assign(2000, '\0');
    platform::SetSounds(0, {tick, tick});
    const auto startSome = [] {
        for (std::size_t i = 0; i < 30; ++i) platform::StartSound(i % 3);
    };
    EXPECT_LE(contract::TimeOf(startSome), contract::BoundMs);
    platform::Sleep(500);  // it has come up, or has found out that there is nothing
    EXPECT_LE(contract::TimeOf(startSome), contract::BoundMs);
}

// --- The rest ---

TEST(Load, IsAPercentageOfTheTimeBetween) {
    const auto first = platform::ProcessorLoad();
    EXPECT_FALSE(first.has_value()) << "nothing to compare with";
    platform::Sleep(300);
    const auto load = platform::ProcessorLoad();
    if (load) {
        EXPECT_GE(*load, 0);
        EXPECT_LE(*load, 100);
    }
}

TEST(Network, AServerThatIsNotThereGivesNoText) {
    const std::int64_t took =
        contract::TimeOf([] { EXPECT_EQ(platform::FetchText("http://127.0.0.1:9/ver.txt", 64, 3000), ""); });
    EXPECT_LE(took, 3000 + contract::BoundMs);
    EXPECT_EQ(platform::FetchText("no address", 64, 3000), "");
}

TEST(Instances, TheDoorTakesMessagesUntilItIsClosed) {
    constexpr unsigned show = 123456;
    std::vector<std::string> taken;
    platform::OpenDoor("a door", [&](const platform::SentMessage& sent) {
        taken.push_back(sent.message == show ? "show"
                                             : std::string(static_cast<const char*>(sent.lpData), sent.cbData));
    });
    const WindowHandle door = platform::FindTopWindow(platform::DoorClass, "a door");
    ASSERT_GT(door, 0);
    EXPECT_TRUE(platform::SendCopyData(door, "-run C:\\my job.tsj"));
    EXPECT_TRUE(platform::SendPlainMessage(door, show));
    EXPECT_EQ(taken, (std::vector<std::string>{"-run C:\\my job.tsj", "show"}));
    platform::CloseDoor();
    EXPECT_EQ(platform::FindTopWindow(platform::DoorClass, "a door"), 0);
    EXPECT_FALSE(platform::SendCopyData(door, "late"));
    EXPECT_FALSE(platform::SendPlainMessage(door, show));
    platform::CloseDoor();
}

TEST(Instances, TheSecondIsToldThatTheFirstHasBegun) {
    const std::string commandLine = "-run C:\\my job.tsj";
    platform::TellBegun(commandLine);
    for (int start = 0; start < 2; ++start) {
        const platform::BegunSign sign(commandLine);
        EXPECT_FALSE(sign.IsSet());
        platform::TellBegun("-run C:\\another.tsj");
        EXPECT_FALSE(sign.IsSet());
        platform::TellBegun(commandLine);
        EXPECT_TRUE(sign.IsSet());
    }
}

}  // namespace
