// The list control that shows a ListModel: class "TessarineList", for dialog templates too. The model is the owner's
// and outlives the window; what the user does is told by the model's events, of which the control takes Changed alone.
// Each of them may pump and change the list.
//
// The window's text is that of the selected row, a line for each of its texts; it follows behind the messages that are
// waiting. The border is that of an edit control.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/list_painter.h"
#include "controls/painted_control.h"
#include "widgets/list_model.h"

// Before the first dialog that names the class; more than once does no harm.
void RegisterListControl();

class ListControl : public PaintedControl {
public:
    // `lengths` are in pixels at 100 percent; the visible part is the control's own affair. Rows are higher and small
    // buttons wider where their texts need it.
    void Attach(HWND control, ListModel& listModel, const ListMeasures& lengths = {});

    // Shows what the model does not tell, such as SmallButton1Visible.
    void Refresh();

    // What ListRow::ikona chooses from, drawn at ImageSize; they stay the caller's. A number without an icon gets the
    // program's.
    void SetIcons(std::vector<HICON> icons);

    // A row's own text of small button 1 comes first.
    void SetSmallButtonTexts(const std::string& gumb, const std::string& gumb1);

    // A row is being dragged; its press is over and will be no click.
    std::function<void(int index)> BeginDrag;

    // Where a menu belongs that MouseDown opens for the right button, in screen pixels. For the keyboard's menu key,
    // which comes as such a press, it is the middle of the selected row.
    POINT MenuPlace() const { return menuPlace; }

    void StaviFocus();  // ("set the focus")

    // What screen readers call a double click on a row.
    void SetAction(const std::string& text) { action = text; }

    // Makes the window lower, so that it shows whole rows only.
    void FitWholeRows() const;

private:
    int PartCount() const override;
    std::optional<std::string> NameOf(int part) const override;
    std::optional<std::string> DescriptionOf(int part) const override;
    std::optional<long> RoleOf(int part) const override;
    std::optional<long> StateOf(int part) const override;
    RECT PlaceOf(int part) const override;
    int PartAt(POINT place) const override;
    int SelectedPart() const override;
    bool Select(int part) override;
    std::optional<std::string> ActionOf(int part) const override;
    bool DoAction(int part) override;
    const ListRow* RowOfPart(int part) const;
    void TellOfRows();

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool OnMouse(UINT message, WPARAM wParam, platform::Point point);
    bool OnKeyboard(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnLooks(UINT message, WPARAM wParam, LPARAM lParam);

    void OnPress(ListButton button, platform::Point point);
    void OnRelease(ListButton button, platform::Point point);
    void OnDoubleClick(platform::Point point);
    void OnMouseMove(WPARAM buttons, platform::Point point);
    void OnScroll(int code);
    bool OnKey(int key);
    void OnMenuKey();
    void OnPaint(HDC paper) const override;
    void OnModelChanged();
    void Update();
    void OnDestroy();

    void HoldPress();
    void EndPress();
    bool IsDragged(platform::Point point) const;
    void StartDrag();
    void SetHot(ListHit hit);
    ListMeasures Measures() const;
    void Measure();
    void UpdateScrollBar();
    std::string SelectedTexts() const;
    bool ShowsFocus() const;

    ListModel* model = nullptr;
    ListMeasures atHundred;
    ListPainter painter;
    POINT menuPlace{};

    ListHit pressed;  // by the left button, since pressPoint
    platform::Point pressPoint;
    bool capturing = false;
    ListHit lastPress;  // kept for the second click of a double click
    ListHit hot;        // under the mouse
    int saidSelection = -1;
    int saidCount = 0;
    std::string action;
    bool updatePosted = false;
};
