#include "replay/send_keystrokes.h"

#include <set>

#include "replay/timing.h"
#include "settings/settings.h"
#include "sounds/key_sounds.h"
#include "support/status_view_stand_in.h"
#include "support/story.h"

namespace {

struct Sounds {
    int loaded = 0;
    std::vector<int> played;
};
Sounds sounds;

}  // namespace

int KeySoundCount() {
    return sounds.loaded;
}

void PlayKeySound(int index) {
    sounds.played.push_back(index);
}

namespace {

constexpr int Escape = platform::VirtualKeyEscape;

class Typing : public testing::Test {
protected:
    // The result of sending `text` with `budgetMs` for all of it.
    std::int32_t Send(const std::string& text, std::int32_t budgetMs = 0) {
        pacing.budgetMs = budgetMs;
        return SendKeystrokes(text, pacing, escHeld);
    }

    static std::vector<std::pair<int, int>> KeysSent() {  // virtual key, state
        std::vector<std::pair<int, int>> keys;
        for (const simulated::InputEntry& entry : simulated::Journal()) {
            keys.emplace_back(entry.record.KeyCode() % 65536, entry.record.KeyState());
        }
        return keys;
    }

    static std::vector<std::int64_t> TimesSent() {
        std::vector<std::int64_t> times;
        for (const simulated::InputEntry& entry : simulated::Journal()) times.push_back(entry.time);
        return times;
    }

    KeystrokePacing pacing{1000, 100, 0, false};
    bool escHeld = false;
};

using Keys = std::vector<std::pair<int, int>>;

TEST_F(Typing, TextArrivesInTheFocusedWindow) {
    const auto window = simulated::AddWindow({.className = "Edit"});
    EXPECT_EQ(Send("{L_SHIFT DOWN}h{L_SHIFT UP}ello, World{ENTER}1"), 2 + 2 + 4 * 2 + 2 + 2 + 5 * 2 + 2 + 2);
    EXPECT_EQ(simulated::TextOf(window), "Hello, world\r\n1");  // a capital in the text adds no shift
    for (const bool down : heldInput.KeysDown) EXPECT_FALSE(down);
}

TEST_F(Typing, ExtendedKeysKeepTheirFlagDownAndUp) {
    Send("{R_SHIFT DOWN}{LEFT_ARROW}{R_SHIFT UP}{LEFT_ARROW}");
    EXPECT_EQ(KeysSent(), (Keys{{161, 1}, {37, 1}, {37, 3}, {161, 3}, {37, 0}, {37, 2}}));
}

TEST_F(Typing, BudgetIsSpreadOverTheTokensInWholeMilliseconds) {
    EXPECT_EQ(Send("a{b DOWN}{WHEEL}", 100), 3);
    EXPECT_EQ(TimesSent(), (std::vector<std::int64_t>{0, 0, 33}));
    EXPECT_EQ(platform::TickCount(), 99) << "after the last token too, and for a wheel that does not turn";
}

TEST_F(Typing, WheelTurnsAreMouseInputAndHoldNothing) {
    EXPECT_EQ(Send("{WHEEL DOWN}{WHEEL UP}{WHEEL}"), 2);
    const auto& journal = simulated::Journal();
    ASSERT_EQ(journal.size(), 2U);
    EXPECT_EQ(journal[0].record.mouseData(), -120);
    EXPECT_EQ(journal[1].record.mouseData(), 120);
    for (const simulated::InputEntry& entry : journal) {
        EXPECT_EQ(entry.record.dwType(), platform::InputMouse);
        EXPECT_EQ(entry.record.dwFlags(), 34816);
        EXPECT_EQ(entry.record.mouseTime(), 0);
    }
    EXPECT_FALSE(KeyDownFlag(300));
}

TEST_F(Typing, KeysLeftDownStayKnown) {
    Send("{L_CTRL DOWN}a{x DOWN}");
    EXPECT_TRUE(KeyDownFlag(162));
    EXPECT_TRUE(KeyDownFlag(88));
    EXPECT_FALSE(KeyDownFlag(65));
    Send("{L_CTRL UP}");
    EXPECT_FALSE(KeyDownFlag(162));
}

TEST_F(Typing, EscapeCancelsBetweenTokensAndInPauses) {
    // Four tokens. A pause of 25 ms does not look at the key, one of 200 ms does every 50 ms.
    for (const auto& [pressedAt, budget, endsAt] : {std::tuple{30, 100, 50}, {210, 800, 250}, {399, 800, 400}}) {
        const std::int64_t begin = platform::TickCount();
        simulated::ClearJournals();
        simulated::MeanwhileAt(begin + pressedAt, [] { simulated::UserTaps(Escape); });
        EXPECT_EQ(Send("{L_SHIFT}bcd", budget), -2);
        EXPECT_EQ(simulated::Journal().size(), 4U);
        EXPECT_EQ(platform::TickCount() - begin, endsAt);
    }
    Send("{L_SHIFT DOWN}");
    simulated::UserTaps(Escape);
    EXPECT_EQ(Send("a"), -2);
    EXPECT_TRUE(KeyDownFlag(160)) << "for the run to release";
}

TEST_F(Typing, EscapeInTheTextIsNotTheUsers) {
    EXPECT_EQ(Send("{ESC}ab{ESC}", 800), 8);
    EXPECT_FALSE(escHeld);
    EXPECT_FALSE(EscapePressed(false)) << "nor at the next poll of the run";
    EXPECT_EQ(Send("{ESC DOWN}a", 200), 3);
    EXPECT_TRUE(escHeld);
    EXPECT_EQ(Send("b{ESC UP}", 200), 3);
    EXPECT_FALSE(escHeld);
    EXPECT_FALSE(EscapePressed(false));
}

TEST_F(Typing, TextThatDoesNotCompileShowsABoxAndSendsNothing) {
    EXPECT_EQ(Send(""), 0);
    EXPECT_EQ(Send("ab{NO_KEY}"), -2);
    EXPECT_EQ(Send("a{0}"), -1);
    EXPECT_THROW(Send("ab{c"), RuntimeFailure);
    const std::vector<std::string> boxes = {"There is no keystrokes to send|0", "Invalid keystroke:\"{NO_KEY}\"|-2",
                                            "Invalid scancode for keystroke \"{0}\"|-1"};
    EXPECT_EQ(Boxes(), boxes);
    for (const auto& box : simulated::ShownBoxes()) EXPECT_EQ(box.icon, platform::BoxIcon::Error);
    EXPECT_TRUE(simulated::Journal().empty());
}

TEST_F(Typing, RefusedInputCountsNothing) {
    simulated::SetInjection(simulated::Injection::Refused);
    EXPECT_EQ(Send("abc"), 0);
}

TEST_F(Typing, SoundsPlayOnceForEachKeyThatGoesDown) {
    const std::string text = "a{b DOWN}{b UP}{WHEEL UP}";
    pacing.soundsOn = true;
    Send(text);
    EXPECT_TRUE(sounds.played.empty()) << "none are loaded";
    sounds.loaded = 3;
    Send(text);
    EXPECT_EQ(sounds.played.size(), 2U);
    pacing.soundsOn = false;
    Send(text);
    EXPECT_EQ(sounds.played.size(), 2U);
}

TEST_F(Typing, PausesFeedTheProgressBar) {
    settings.Display_Executing_Status = 1;
    pacing.speedPercent = 200;
    Send("ab", 800);  // 800 ms at double speed are 1600 of the recorded 1000 ms
    EXPECT_EQ(statusViewStandIn.barHistory.back(), 100);
    statusViewStandIn.barValue = 0;
    pacing = {4000, 100, 0, false};
    Send("ab", 800);  // 20 of 100, but for the slice that each pause sleeps out and the fraction each begins without
    EXPECT_EQ(statusViewStandIn.barValue, 14);
    pacing.totalMs = 0;
    Send("ab", 800);
    EXPECT_EQ(statusViewStandIn.barValue, 14) << "a job without a length has no progress";
}

TEST_F(Typing, PickSoundStaysWithinWhatIsLoaded) {
    EXPECT_EQ(PickSound(), 0);
    sounds.loaded = 4;
    std::set<int> picked;
    for (int i = 0; i < 500; ++i) {
        picked.insert(PickSound());
        platform::Sleep(37);
    }
    EXPECT_EQ(picked, (std::set<int>{0, 1, 2, 3}));
}

}  // namespace
