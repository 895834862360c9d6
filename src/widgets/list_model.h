// lista: the list of jobs and the list of schedules, without the painting. A row is a small panel with an icon, a big
// and a small text, and two small buttons that only the selected row shows; rows stand under one another and slide
// under a scroll bar, a whole row at a time. The control gives the measures and hands in what the mouse and the keys
// do; it paints what the model says. Pixels are the control's own, from the upper left corner of the visible part.
//
// Events are raised last, when the model is in order again: a handler may change the list, and may pump.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/types.h"

struct ListRow {
    std::string Text;   // the big text
    std::string Text2;  // the small text
    int ikona = 0;      // ("icon") which picture of the icon set
    std::string gumb;   // ("button") text of small button 1, where it differs from the list's own
    std::string mark;   // what a mark at the right end says; empty: there is none
};

enum class ListPart { None, Row, gumb, gumb1, Mark };

struct ListHit {
    int index = -1;
    ListPart part = ListPart::None;
    friend bool operator==(const ListHit&, const ListHit&) = default;
};

enum class ListButton { Left, Right, Middle };

// Empty functions are not called.
struct ListEvents {
    std::function<void()> Changed;                                        // what is shown is another than before
    std::function<void(int index)> Click;                                 // a row was selected, or -1: none
    std::function<void(ListButton, ListHit, platform::Point)> MouseDown;  // before anything is selected
    std::function<void(ListButton, ListHit, platform::Point)> MouseUp;
    std::function<void(platform::Point)> MouseMove;
    std::function<void(int index)> DblClick;
    std::function<void(int index)> SmallButton1Click;
    std::function<void(int index)> SmallButton2Click;
    std::function<void(int index)> MarkClick;  // the row has been selected before
    std::function<bool(int index)> KeyLeaves;  // before a key moves the selection to this row; false forbids it
};

// In pixels, set by the owner when the list is loaded.
struct ListMeasures {
    int ItemHeight = 50;
    int ImageSize = 32;
    int FontSize = 10;  // of the big text, in points
    platform::Size smallButton = {70, 22};
    int margin = 6;
    platform::Size visible = {300, 250};
};

struct RowLook {
    std::uint32_t back = 0;  // 0xBBGGRR
    std::uint32_t text = 0;
    bool gumb = false;
    bool gumb1 = false;
};

class ListModel {
public:
    static constexpr std::uint32_t SelectedBack = 0x804340;
    static constexpr std::uint32_t White = 0xFFFFFF;
    static constexpr std::uint32_t Black = 0;
    static constexpr std::int64_t TypingPauseMs = 500;

    ListEvents events;

    // Rows. Indexes that do not exist are range failures.
    int ListCount() const { return static_cast<int>(rows.size()); }
    const ListRow& Row(int index) const;
    const std::string& List(int index) const { return Row(index).Text; }
    int GetIcon(int index) const { return Row(index).ikona; }
    void AddItem(std::string big, int icon, std::string small);
    void RemoveItem(int index);  // later rows move up; the selection keeps its number, or goes with the last row
    void Clear();                // raises no click
    void SetBigText(int index, const std::string& text);
    void SetSmallText(int index, const std::string& text);
    void SetMaliGumb1Text(int index, const std::string& text);  // ("small button 1 text")
    void SetIcon(int index, int icon);
    void SetMark(int index, const std::string& text);

    // Selection; -1 is none.
    int listindex() const { return selected; }
    void SelectItem(int index);    // scrolls the row in; "Out Of Bounds!" for one that does not exist
    void setlistindex(int index);  // where it stands; -1 clears the selection
    bool SmallButton1Visible = false;
    bool SmallButton2Visible = false;
    RowLook LookOf(int index) const;

    // Scrolling, in rows.
    void Measure(const ListMeasures& newMeasures);
    const ListMeasures& Measures() const { return measures; }
    int ScrollValue() const { return scroll; }
    void ScrollTo(int row);     // as near as the scroll bar allows
    int ScrollMaximum() const;  // rows below the visible part when the first row stands on top
    bool ScrollVisible() const { return ScrollMaximum() > 0; }
    void Wheel(int delta);  // 120 is one notch away from the user and one row up; smaller steps add up
    void scrolldown() { ScrollTo(ScrollMaximum()); }
    bool on_screen(int index) const;  // the whole row

    // Places, also of rows that are scrolled out.
    platform::Rect RowRect(int index) const;
    platform::Rect IconRect(int index) const;
    platform::Rect ButtonRect(int index, ListPart button) const;
    platform::Rect MarkRect(int index) const;  // whether or not the row has a mark
    ListHit HitTest(platform::Point point) const;

    // What the user does. A click is a left press and release on the same part of the same row.
    void PressMouse(ListButton button, platform::Point point);
    void ReleaseMouse(ListButton button, platform::Point point);
    void MoveMouse(platform::Point point);
    void CancelPress() { pressed = {}; }  // the press under way will be no click
    void DoubleClick(platform::Point point);
    void OtkaziIduciClickEvent() { skipsClick = true; }  // ("cancel the next click event")

    // `now` in ms. Arrows, Home, End, Page Up and Page Down; false for any other key.
    bool KeyDown(int virtualKey, std::int64_t now);

    // Selects a row as a key does: KeyLeaves may forbid it. Ignored for one that does not exist.
    void ChooseRow(int index);

    // Selects the next row that begins with what was typed without a pause, in any case. A control character is none.
    void TypeCharacter(char character, std::int64_t now);

private:
    ListRow& RowToChange(int index);
    int VisibleRows() const;
    bool ButtonShown(int index, ListPart button) const;
    void ScrollIn(int index);
    void Click(const ListHit& hit);
    void NoteKey(std::int64_t now);
    int FindTyped() const;
    bool BeginsAsTyped(int index) const;
    int Target(int virtualKey) const;
    void Changed() const;

    std::vector<ListRow> rows;
    int selected = -1;
    ListMeasures measures;
    int scroll = 0;
    int wheelRest = 0;
    ListHit pressed;
    bool skipsClick = false;
    std::string typed_text;
    std::int64_t typed_time = 0;
};
