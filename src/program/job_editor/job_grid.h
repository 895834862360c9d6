// The grid of the job editor: the system's report list in owner-data mode. A row is asked of the model
// (folding/row_texts.h) when it is drawn, and only the last one is kept.
//
// One block of rows is selected at a time, whatever keys go along with a click or an arrow; it is editSelection of
// editor/row_edits.h, and stands nowhere else. So the mouse and the keys are taken from the list, and rows are painted
// as the block has them: a change of a selection of any length costs what is seen of it. The list's own selection is
// what screen readers are told; a block that is too long for that is told by its moving end.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <array>
#include <cstdint>
#include <functional>

#include "folding/row_texts.h"

class JobGrid {
public:
    void Attach(HWND list);
    HWND Window() const { return window; }

    std::function<void()> Edit;  // a row was double-clicked: it is the one that is selected

    void SetHeaders();  // in the present language
    void Scale();       // columns for the present DPI
    void ShowRows();    // rows have come, gone or changed; with the selection of the model
    void Repaint();     // the same rows in other words
    void SelectAll();

    // Of the form's WM_NOTIFY from the grid; true when `result` is the answer.
    bool OnNotify(const NMHDR& notice, LRESULT& result);

private:
    struct Block {
        int from = 0;
        int to = -1;  // below `from`: none
        bool Has(int row) const { return row >= from && row <= to; }
    };
    using Widths = std::array<int, GridColumnCount>;

    static LRESULT CALLBACK ListThunk(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR grid) noexcept;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnDestroy();

    bool OnKey(WPARAM key);
    void OnPress(POINT place, bool extend);
    void OnRightPress(POINT place);
    void OnDrag(POINT place);
    void OnWheel(int delta);
    int RowAt(POINT place) const;

    void Choose(int row, bool extend);
    void Select(int row, int rowSel);
    void ShowSelection();
    void TellSelection(Block block);
    void SetRowState(int row, UINT state, UINT mask) const;

    void OnGetText(LVITEMA& item);
    static LRESULT OnDraw(NMLVCUSTOMDRAW& draw, bool focused);

    bool LoadWidths();
    void FitWidths();
    void TakeWidths();
    void SaveWidths();

    HWND window = nullptr;
    Block told;     // rows that are selected for the list itself
    int wheel = 0;  // what a fine wheel has turned since the last whole notch
    int shownRow = -1;
    GridColumns shownColumns;
    Widths widths{};               // twips
    bool widthsAreChosen = false;  // by the user, now or another time
    int dpi = 0;                   // for which the columns stand
};
