#include "widgets/list_model.h"

#include "support/story.h"

using platform::Point;

namespace {

constexpr int Up = 38;
constexpr int Down = 40;

// Ten rows of 20 pixels, of which five can be seen; what the list raises is written down.
class List : public testing::Test {
protected:
    List() {
        list.Measure({.ItemHeight = 20, .ImageSize = 16, .smallButton = {30, 10}, .margin = 4, .visible = {200, 105}});
        for (const char* name : {"Abc", "abd", "Bcd", "Cde", "ab", "Xyz", "aBz", "Quit", "Row", "Zoo"}) {
            list.AddItem(name, 0, "");
        }
        list.SmallButton1Visible = list.SmallButton2Visible = true;
        list.events.Click = [this](int index) { heard.push_back("click " + std::to_string(index)); };
        list.events.MouseDown = [this](ListButton, ListHit hit, Point) {
            heard.push_back("down " + std::to_string(hit.index));
        };
        list.events.SmallButton1Click = [this](int index) { heard.push_back("gumb " + std::to_string(index)); };
        list.events.SmallButton2Click = [this](int index) { heard.push_back("gumb1 " + std::to_string(index)); };
    }

    void ClickOn(Point point) {
        list.PressMouse(ListButton::Left, point);
        list.ReleaseMouse(ListButton::Left, point);
    }

    void Type(const std::string& text, std::int64_t from) {
        for (const char each : text) list.TypeCharacter(each, from += 100);
    }

    static Point In(const platform::Rect& rect) { return {rect.left + 1, rect.top + 1}; }

    ListModel list;
    std::vector<std::string> heard;
};

TEST_F(List, ScrollsInARowThatIsClickedWhereItIsHalfSeen) {
    ClickOn({5, 102});  // the sixth row, of which five pixels are seen
    EXPECT_EQ(list.listindex(), 5);
    EXPECT_TRUE(list.on_screen(5));
    EXPECT_EQ(list.ScrollValue(), 1);
}

TEST_F(List, RefusesRowsThatDoNotExist) {
    ListModel empty;
    empty.Clear();
    for (const int index : {-1, 0}) EXPECT_THROW(empty.SelectItem(index), RuntimeFailure);
    EXPECT_FALSE(empty.KeyDown(65, 0));
    EXPECT_TRUE(empty.KeyDown(Down, 0));
    empty.TypeCharacter('a', 0);
    EXPECT_EQ(empty.listindex(), -1);
    EXPECT_THROW(list.RemoveItem(10), RuntimeFailure);
    EXPECT_THROW(list.setlistindex(10), RuntimeFailure);
    EXPECT_THAT([this] { list.SelectItem(10); }, testing::ThrowsMessage<RuntimeFailure>("Out Of Bounds!"));
}

TEST_F(List, ScrollsInWhatIsSelected) {
    const std::pair<int, int> steps[] = {{4, 0}, {5, 1}, {9, 5}, {6, 5}, {4, 4}, {0, 0}};
    for (const auto& [select, scroll] : steps) {
        list.SelectItem(select);
        EXPECT_EQ(list.ScrollValue(), scroll) << select;
        EXPECT_TRUE(list.on_screen(select));
    }
    EXPECT_FALSE(list.on_screen(5));  // five pixels of it can be seen
}

TEST_F(List, ScrollBarFollowsTheRows) {
    EXPECT_EQ(list.ScrollMaximum(), 5);
    list.scrolldown();
    list.RemoveItem(0);
    EXPECT_EQ(list.ScrollValue(), 4);
    list.Wheel(60);
    EXPECT_EQ(list.ScrollValue(), 4);
    list.Wheel(60);
    EXPECT_EQ(list.ScrollValue(), 3);
    list.Wheel(-1200);
    EXPECT_EQ(list.ScrollValue(), 4);
    while (list.ListCount() > 5) list.RemoveItem(0);
    EXPECT_FALSE(list.ScrollVisible());
    EXPECT_EQ(list.ScrollValue(), 0);
    list.Clear();
    EXPECT_EQ(list.listindex(), -1);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(List, OnlyTheSelectedRowShowsButtons) {
    list.SelectItem(2);
    const Point onGumb = In(list.ButtonRect(2, ListPart::gumb));
    const Point onGumb1 = In(list.ButtonRect(2, ListPart::gumb1));
    EXPECT_EQ(list.HitTest(onGumb), (ListHit{2, ListPart::gumb}));
    EXPECT_EQ(list.HitTest({onGumb.x, onGumb.y + 20}), (ListHit{3, ListPart::Row}));
    heard.clear();
    ClickOn(onGumb);
    ClickOn(onGumb1);
    EXPECT_THAT(heard, ElementsAre("down 2", "gumb 2", "down 2", "gumb1 2"));
    EXPECT_EQ(list.listindex(), 2);
    list.SmallButton2Visible = false;
    EXPECT_EQ(list.HitTest(onGumb1), (ListHit{2, ListPart::gumb}));
    EXPECT_EQ(list.LookOf(2).back, 8405824U);
    EXPECT_FALSE(list.LookOf(3).gumb || list.LookOf(3).gumb1);
}

TEST_F(List, SelectsByAClickOnOneRow) {
    list.ScrollTo(2);
    ClickOn({10, 25});
    EXPECT_THAT(heard, ElementsAre("down 3", "click 3"));
    heard.clear();
    list.PressMouse(ListButton::Left, {10, 5});
    list.ReleaseMouse(ListButton::Left, {10, 25});  // dragged to another row
    list.PressMouse(ListButton::Right, {10, 5});
    list.ReleaseMouse(ListButton::Right, {10, 5});
    list.OtkaziIduciClickEvent();
    ClickOn({10, 45});
    EXPECT_THAT(heard, ElementsAre("down 2", "down 2", "down 4"));
    ClickOn({10, 45});
    EXPECT_EQ(list.listindex(), 4);
    for (const Point outside : {Point{-1, 5}, Point{200, 5}, Point{5, 105}, Point{5, -1}}) {
        EXPECT_EQ(list.HitTest(outside), ListHit());
    }
}

TEST_F(List, WalksWithTheKeysToItsEnds) {
    list.KeyDown(Down, 0);
    EXPECT_EQ(list.listindex(), 0);
    list.KeyDown(Up, 0);
    EXPECT_THAT(heard, ElementsAre("click 0"));  // at the top it does nothing
    for (int i = 0; i < 20; ++i) list.KeyDown(Down, 0);
    EXPECT_EQ(list.listindex(), 9);
    EXPECT_EQ(list.ScrollValue(), 5);
    EXPECT_EQ(heard.size(), 10U);
    constexpr int PageUp = 33, PageDown = 34, End = 35, Home = 36, Left = 37, Right = 39;
    const std::pair<int, int> walk[] = {{Up, 8},  {PageUp, 3}, {PageUp, 0}, {PageDown, 5},
                                        {End, 9}, {Home, 0},   {Right, 1},  {Left, 0}};
    for (const auto& [key, row] : walk) {
        EXPECT_TRUE(list.KeyDown(key, 0));
        EXPECT_EQ(list.listindex(), row) << key;
    }
    for (const int key : {PageUp - 1, Down + 1}) EXPECT_FALSE(list.KeyDown(key, 0)) << key;
}

TEST_F(List, TypingFindsTheNextRowInAnyCase) {
    Type("ab", 1000);
    EXPECT_EQ(list.listindex(), 0);
    Type("a", 2000);
    EXPECT_EQ(list.listindex(), 1);
    Type("A", 3000);
    EXPECT_EQ(list.listindex(), 4);
    Type("abz", 4000);
    EXPECT_EQ(list.listindex(), 6);
    Type("a", 5000);  // round the end
    EXPECT_EQ(list.listindex(), 0);
    Type("zoo lander", 6000);  // the last row that fits stays
    EXPECT_EQ(list.listindex(), 9);
    list.TypeCharacter('z', 8000);
    list.TypeCharacter('x', 8500);  // not yet a pause
    EXPECT_EQ(list.listindex(), 9);
    list.TypeCharacter('x', 9001);
    EXPECT_EQ(list.listindex(), 5);
}

}  // namespace
