#include "dictionary/dictionary.h"
#include "editor/keyboard_layout.h"
#include "editor/keystroke_stage.h"
#include "keystrokes/notation.h"

namespace {

using KeystrokeBoxTest = KeystrokeStage;
using OnscreenKeys = KeystrokeStage;

constexpr int Back = 8;
constexpr int LeftKey = 37;
constexpr int RightKey = 39;
constexpr int Delete = 46;

TEST_F(KeystrokeBoxTest, KeysChangeTheTextAtTheCaret) {
    struct Case {
        std::string before;
        std::vector<int> keys;  // that go down; negative: come up
        std::string after;
    };
    const Case cases[] = {
        {"|", {'A', -'A'}, "a|"},
        {"|ab", {'C', -'C'}, "c|ab"},
        {"a|b", {'C', -'C'}, "ac|b"},
        {"ab|", {'C', -'C'}, "abc|"},
        // A held key repeats itself.
        {"a|", {'B', 'B', 'B', -'B'}, "abbb|"},
        {"|", {LeftCtrl, LeftCtrl, LeftCtrl, 'A', -'A', -LeftCtrl}, "{L_CTRL DOWN}a{L_CTRL UP}|"},
        {"|x", {LeftShift, LeftShift, 'Y', LeftShift, -LeftShift}, "{L_SHIFT DOWN}y{L_SHIFT UP}|x"},
        {"{L_SHIFT DOWN}|x{L_SHIFT UP}", {LeftShift}, "{L_SHIFT DOWN}|x{L_SHIFT UP}"},
        {"|", {RightAlt, RightAlt, -RightAlt}, "{ALT DOWN}{ALT UP}|"},
        {"a{F5}|b", {F5, F5, -F5}, "a{F5}{F5 DOWN}{F5 UP}|b"},
        {"{F5 DOWN}a{F5 UP}|", {F5}, "{F5 DOWN}a{F5 UP}{F5 DOWN}|"},
        // The editing keys, at both ends and between.
        {"|ab", {LeftKey}, "|ab"},
        {"ab|", {LeftKey}, "a|b"},
        {"a{F5}|b", {LeftKey}, "a|{F5}b"},
        {"a{F5}|", {LeftKey, LeftKey, LeftKey}, "|a{F5}"},
        {"|{F5}b", {RightKey}, "{F5}|b"},
        {"{F5}|b", {RightKey, RightKey}, "{F5}b|"},
        {"|{F5}b", {Delete}, "|b"},
        {"a|{F5}b", {Delete}, "a|b"},
        {"a|", {Delete}, "a|"},
        {"a{F5}|", {Back}, "a|"},
        {"a{F5}|b", {Back}, "a|b"},
        {"|a", {Back}, "|a"},
        {"|", {Back, Delete, LeftKey, RightKey}, "|"},
        {"ab|", {-Back, -Delete, -LeftKey, -RightKey}, "ab|"},
        // Wheel rows take no keys, but can be shortened.
        {"{WHEEL UP}|", {'A', -'A', F5, -F5}, "{WHEEL UP}|"},
        {"{WHEEL UP}{WHEEL DOWN}|", {Back}, "{WHEEL UP}|"},
        // What follows a "{" that is not closed is one token.
        {"a{bc|", {LeftKey}, "a|{bc"},
        {"a|{bc", {'D', -'D'}, "ad|{bc"},
        {"a{bc|", {'D', -'D'}, "a{bc|"},
        {"a{bc|", {Back}, "a|"},
        {"a|{bc", {Delete}, "a|"},
    };
    OpenRows({"a"});
    for (const Case& each : cases) {
        SCOPED_TRACE(each.before);
        Show(each.before);
        for (const int key : each.keys) key > 0 ? Text1KEYDOWN(key, false) : Text1KEyUP(-key, false);
        EXPECT_EQ(Shown(), each.after);
        EXPECT_EQ(RowText(), keystrokeBox.text);
    }
}

TEST_F(KeystrokeBoxTest, ShowsTheShortestFormOfTheSelectedRow) {
    OpenRows({"{A DOWN}{A UP}{F5 DOWN}{F5 UP}", "b"});
    EXPECT_EQ(Shown(), "a{F5}|");
    EXPECT_TRUE(keystrokeBox.enabled);
    EXPECT_FALSE(SaveIsEnabled()) << "looking changes nothing";
    Press(F5);
    EXPECT_EQ(Shown(), "a{F5}{F5 DOWN}{F5 UP}|");
    EXPECT_EQ(RowColumns(0)[7], "a{F5}{F5}");
    EXPECT_TRUE(SaveIsEnabled());
    EXPECT_THAT(editViewStandIn.calls, Contains("RepaintRows"));
    edit_story::Select(2, 0);
    EXPECT_EQ(Shown(), "b|") << "of several rows, the one with the focus";
    edit_story::Select(1);
    EXPECT_EQ(Shown(), "|") << "a click has no keys";
    EXPECT_FALSE(keystrokeBox.enabled);
    Press('A');
    EXPECT_EQ(Shown(), "|");
    edit_story::Select(0);
    EXPECT_EQ(Shown(), "a{F5}{F5}|");
    Undo();
    EXPECT_EQ(Shown(), "a{F5}|") << "one step for all that was typed";
}

TEST_F(KeystrokeBoxTest, WheelRowsTakeNotchesAndNoOthersDo) {
    OpenRows({"{WHEEL UP}", "a"});
    EXPECT_EQ(keystrokeBox.Tag, "wheel");
    PlaceCaret(0, false);
    command3_Click();
    Command5_Click();
    EXPECT_EQ(Shown(), "{WHEEL DOWN}{WHEEL UP}|{WHEEL UP}");
    EXPECT_EQ(RowText(), keystrokeBox.text);
    edit_story::Select(2);
    EXPECT_EQ(keystrokeBox.Tag, "");
    EXPECT_FALSE(keystrokeBox.wheelButtons);
    Command5_Click();
    command3_Click();
    EXPECT_EQ(Shown(), "a|");
}

TEST_F(KeystrokeBoxTest, BadKeysAreToldOnceAndLeaveTheTextAlone) {
    constexpr int NoKey = 255;
    OpenRows({"a"});
    for (int repeat = 0; repeat < 3; ++repeat) Press(NoKey);
    EXPECT_THAT(Boxes(), IsEmpty()) << "the focus may be on its way elsewhere";
    simulated::RunFor(50);
    EXPECT_THAT(Boxes(), ElementsAre("Invalid key|Invalid key pressed!"));
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Error);
    EXPECT_EQ(Shown(), "a|");
    Press(NoKey);
    simulated::RunFor(50);
    EXPECT_THAT(Boxes(), SizeIs(2)) << "told again, for it was pressed again";

    Show("a{b|");
    Press('C');
    simulated::RunFor(50);
    EXPECT_THAT(LastBox(), HasSubstr("an opening brace is never closed"));
}

TEST_F(KeystrokeBoxTest, ClicksPutTheCaretToTheNearerEndOfAToken) {
    struct Case {
        int position;
        bool rightHalf;
        std::string after;
    };
    const Case cases[] = {
        {0, false, "|a{F5}b"}, {0, true, "a|{F5}b"}, {1, false, "a|{F5}b"}, {3, false, "a|{F5}b"},
        {3, true, "a{F5}|b"},  {4, true, "a{F5}|b"}, {5, true, "a{F5}b|"},  {6, false, "a{F5}b|"},
    };
    OpenRows({"a{F5}b"});
    for (const Case& each : cases) {
        PlaceCaret(each.position, each.rightHalf);
        EXPECT_EQ(Shown(), each.after) << each.position << each.rightHalf;
    }
    Show("|");
    PlaceCaret(0, true);
    EXPECT_EQ(Shown(), "|");
}

// The alarm about a token that nobody can read pumps in the middle of a key.
TEST_F(KeystrokeBoxTest, KeyInsideAnotherWaitsForItsEnd) {
    OpenRows({"a"});
    Show("{QQ FOO}|");
    simulated::AnswerNextBox({.whileOpen = [] {
        Press('B');
        EXPECT_EQ(Shown(), "{QQ FOO}|");
    }});
    Text1KEYDOWN(LeftCtrl, false);
    EXPECT_EQ(Shown(), "{QQ FOO}{L_CTRL DOWN}b|");
}

TEST_F(KeystrokeBoxTest, KeyGoesToNoOtherRowThanItsOwn) {
    OpenRows({"a", "b"});
    Show("{QQ FOO}|");
    simulated::AnswerNextBox({.whileOpen = [] {
        Press('X');
        edit_story::Select(2);
    }});
    Text1KEYDOWN(LeftCtrl, false);
    EXPECT_EQ(Shown(), "b|");
    EXPECT_EQ(RowText(0), "{QQ FOO}");
    EXPECT_EQ(RowText(1), "b");
}

TEST_F(OnscreenKeys, LeftButtonPressesAKey) {
    OpenRows({"a"});
    button_MouseDown(F5);
    EXPECT_EQ(Shown(), "a{F5 DOWN}{F5 UP}|");
    EXPECT_EQ(simulated::FocusedWindow(), view.text);
    button_MouseDown(Back);
    EXPECT_EQ(Shown(), "a{F5 DOWN}{F5 UP}{BACKSPACE DOWN}{BACKSPACE UP}|") << "put in, where the real key edits";
    Show("{L_SHIFT DOWN}|a");
    button_MouseDown(LeftShift);
    EXPECT_EQ(Shown(), "{L_SHIFT DOWN}{L_SHIFT UP}|a") << "a held key comes up";
    Show("{WHEEL UP}|");
    button_MouseDown('A');
    EXPECT_EQ(Shown(), "{WHEEL UP}|");
    edit_story::Select(1);
    button_MouseDown('A');
    EXPECT_EQ(Shown(), "|");
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OnscreenKeys, MenuHoldsAndReleases) {
    const auto entries = [](int key) {
        const auto popup = PopupOf(key);
        return std::vector<bool>{popup->press_key, popup->key_down, popup->key_up};
    };
    OpenRows({"a"});
    EXPECT_THAT(entries(LeftShift), ElementsAre(true, true, false));
    key_down_Click();
    EXPECT_EQ(Shown(), "a{L_SHIFT DOWN}|");
    EXPECT_THAT(entries(LeftShift), ElementsAre(false, false, true));
    key_up_Click();
    EXPECT_THAT(entries(F5), ElementsAre(true, true, false));
    press_key_Click();
    EXPECT_EQ(Shown(), "a{L_SHIFT DOWN}{L_SHIFT UP}{F5 DOWN}{F5 UP}|");
}

TEST_F(OnscreenKeys, WorkOnlyWhereKeystrokesAreEdited) {
    OpenRows({"a"});
    Option3_Click();
    button_MouseDown('B');
    EXPECT_FALSE(PopupOf('B'));
    EXPECT_THAT(Boxes(),
                ElementsAre("Edit keystrokes|Click on 'Edit keystrokes' button to insert keystrokes this way.",
                            "Edit keystrokes|Click on 'Edit keystrokes' button to insert keystrokes this way."));
    EXPECT_EQ(simulated::ShownBoxes()[0].icon, platform::BoxIcon::Information);
    EXPECT_FALSE(button_MouseMove('B'));
    EXPECT_EQ(keystrokeBox.text, "a");
    edit_story::Select(0);
    EXPECT_EQ(keystrokeBox.view, KeystrokeView::Keystrokes) << "a keystroke row is there to be edited";
    EXPECT_TRUE(button_MouseMove('B'));
}

// --- the board ---

std::vector<std::string> CaptionsFromTo(int top, int left, int right) {
    std::vector<std::string> captions;
    for (const KeyPart& part : onscreenKeyboard.button) {
        const bool inside = part.place.top == top && part.place.left >= left && part.place.right <= right;
        if (inside) captions.push_back(part.caption);
    }
    return captions;
}

TEST(OnscreenKeyboard, LooksLikeAKeyboard) {
    NacrtajTipkovnicu();
    EXPECT_THAT(CaptionsFromTo(6, 0, 60),
                ElementsAre("`", "1", "2", "3", "4", "5", "6", "7", "8", "9", "0", "-", "=", "Back"));
    EXPECT_THAT(CaptionsFromTo(10, 0, 30), ElementsAre("Tab", "q", "w", "e", "r", "t", "y"));
    EXPECT_THAT(CaptionsFromTo(22, 0, 60), ElementsAre("Ctrl", "Win", "Alt", "Space", "Alt", "Win", "Menu", "Ctrl"));
    EXPECT_EQ(onscreenKeyboard.button.size(), 106U) << "105 keys, and one more piece of Enter";
    for (const KeyPart& part : onscreenKeyboard.button) {
        EXPECT_EQ(ElementExists(part.index), true);
        const platform::Rect& place = part.place;
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= KeyboardSize.width &&
                    place.bottom <= KeyboardSize.height);
        const platform::Point middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        EXPECT_EQ(KeyAt(middle), part.index % SecondPart) << part.caption;
        int key = KeyCodeUnknown;
        int action = ActionNone;
        ParseToken(EventToToken(part.index % SecondPart, 0), key, action);
        EXPECT_NE(key, KeyCodeUnknown) << part.caption;
    }
    EXPECT_EQ(KeyAt({4, 0}), 0) << "between Esc and F1";
    EXPECT_EQ(KeyAt({-1, -1}), 0);
    EXPECT_FALSE(ElementExists(0));
    EXPECT_TRUE(ElementExists(13 + SecondPart));
}

TEST(OnscreenKeyboard, KeysOverlapOnlyWithTheirOwnPieces) {
    NacrtajTipkovnicu();
    const auto& keys = onscreenKeyboard.button;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t k = i + 1; k < keys.size(); ++k) {
            const platform::Rect& a = keys[i].place;
            const platform::Rect& b = keys[k].place;
            const bool overlap = a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
            EXPECT_FALSE(overlap && keys[i].index % SecondPart != keys[k].index % SecondPart)
                << keys[i].caption << " and " << keys[k].caption;
        }
    }
}

TEST(OnscreenKeyboard, IsCaptionedInEveryLanguage) {
    for (int language = LanguageEnglish; language <= LanguageFrench; ++language) {
        SetLanguage(language);
        NacrtajTipkovnicu();
        for (const KeyPart& part : onscreenKeyboard.button) EXPECT_THAT(part.caption, Not(HasSubstr("<")));
    }
    SetLanguage(LanguageGerman);
    NacrtajTipkovnicu();
    EXPECT_THAT(CaptionsFromTo(22, 0, 15), ElementsAre("Strg", "Win", "Alt"));
}

TEST_F(OnscreenKeys, AreColouredUnderTheMouseAndWhileTheirCharacterIsTyped) {
    const auto colours = [](int index) { return onscreenKeyboard.colours[static_cast<std::size_t>(index)]; };
    OpenRows({"a"});
    EXPECT_EQ(colours('A'), KeyAtRest);
    button_MouseMove(13);
    EXPECT_EQ(colours(13), KeyUnderMouse);
    EXPECT_EQ(colours(13 + SecondPart), KeyUnderMouse);
    button_MouseMove(F5);
    EXPECT_EQ(colours(13), KeyAtRest);
    EXPECT_EQ(colours(13 + SecondPart), KeyAtRest);
    Text1KEYDOWN('A', false);
    Text1KEYDOWN(LeftShift, false);
    EXPECT_EQ(colours('A').back, KeyPressedBack);
    EXPECT_EQ(colours(LeftShift), KeyAtRest) << "it goes by its name";
    Text1KEyUP('A', false);
    EXPECT_EQ(colours('A'), KeyAtRest);
    Text1KEYDOWN('A', false);
    LetKeysRest();
    EXPECT_EQ(colours('A'), KeyAtRest);
    EXPECT_EQ(colours(F5), KeyUnderMouse);
}

// The one walk for the board tells of each key what the look back from the caret does.
TEST(OnscreenKeyboard, ShowsTheKeysThatTheTextHolds) {
    const std::string tokens[] = {
        "a",    "B",          "{A DOWN}", "{A UP}",   "{L_SHIFT DOWN}", "{l_shift up}", "{SHIFT DOWN}",
        "{F5}", "{ALT DOWN}", "{ALT UP}", "{1 DOWN}", "{WHEEL DOWN}",   "{QQ DOWN}",    " "};
    std::mt19937 generator(7);
    for (int round = 0; round < 200; ++round) {
        std::string text;
        const int count = static_cast<int>(generator() % 12);
        for (int i = 0; i < count; ++i) text += tokens[generator() % std::size(tokens)];
        const KeysDown held = KeysHeldAt(text, static_cast<int>(text.size()));
        for (const int key : {65, 66, 1, 116, 160, 161, 164}) {
            EXPECT_EQ(held[static_cast<std::size_t>(key)], KeyIsHeld(text, count - 1, key)) << text << " " << key;
        }
    }
    EXPECT_FALSE(KeysHeldAt("a{L_SHIFT DOWN}", 1)[160]) << "it stands behind the caret";
    EXPECT_TRUE(KeysHeldAt("{ALT DOWN}", 10)[165]) << "which of the two, a text does not tell";
}

}  // namespace
