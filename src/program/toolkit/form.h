// A form: a dialog template, a table of its controls, and an object that outlives its window. Every window of the
// program is one, so what all of them need is here once: the message thunk, captions and their letters, tool tips,
// names for screen readers, fonts, enabling, panels, DPI, high contrast, resizing, help, and the keyboard of modeless
// forms.
//
// What a form is stands in its table (Rows) and in a few virtual functions; what it decides stands in a model without
// <windows.h>. A handler that pumps finds the window gone, perhaps: Window() is nullptr then, and calls on controls do
// nothing.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

#include "toolkit/control_row.h"
#include "toolkit/tool_tips.h"
#include "widgets/mnemonics.h"

class Form {
public:
    explicit Form(int dialogTemplate) : resource(dialogTemplate) {}
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    HWND Window() const { return window; }
    bool Visible() const { return window != nullptr && IsWindowVisible(window); }
    HWND Control(int id) const { return GetDlgItem(window, id); }

    // PodesiRjecnik ("set up the dictionary"): captions, names and tips in the language in force, and then Refresh.
    virtual void PodesiRjecnik();

    // The same, unless that is how it is worded already, or it is out of sight: then false. And for every form that is
    // open; pages are their main window's affair.
    bool PodesiRjecnikIfOther();
    static void PodesiRjecnikOfAll();

    // Values, enabling, panels and tips, as the model has them. Nothing while the form is out of sight.
    void Refresh();

    // What opens a page of the help. A program that names nothing has no help: F1 does nothing, and no link is seen.
    using HelpOpener = void (*)(const std::string& topic);
    static void UseHelp(HelpOpener opener) { openHelp = opener; }

    // The page that F1 and the form's help link open (help_topics.h); none for a form that never has the keyboard.
    virtual std::string HelpTopic() const { return {}; }

    // The letters that an owner's captions use, for a form that is seen together with it. Before PodesiRjecnik.
    void SetTakenLetters(const Mnemonics& letters) { takenLetters = letters; }

protected:
    // Makes the window, not visible unless the template says so. False when the system refuses.
    bool Create(HWND parent = nullptr);

    // Shows it until it is closed, and returns what Close was given; NotShown when the system refuses. Pumps.
    static constexpr INT_PTR NotShown = -1;
    INT_PTR RunModal(HWND owner);

    // The end of either kind; from within its own handlers too.
    void Close(INT_PTR result = IDCANCEL);

    // --- what a form is ---

    virtual std::vector<ControlRow> Rows() { return {}; }
    virtual std::string Caption() const { return {}; }  // of the window; none when it is empty

    // Which of its panels is seen, as in ControlRow::panels.
    virtual unsigned VisiblePanels() const { return Mnemonics::AllPanels; }

    virtual void OnInit() {}                 // the template's controls are there, and get their ranges and lists
    virtual bool OnLoad() { return false; }  // they are filled; true: the first control gets the focus
    virtual void OnUnload() {}               // the window is going

    // Links to the help beside IDHELP, which every form that has one in its template gets for nothing. Worded at each
    // PodesiRjecnik, and not seen in a program without help.
    void WordHelpLink(int id) const;
    void OpenHelpOn(const std::string& topic) const;
    static bool HasHelp() { return openHelp != nullptr; }

    // Whether it is worth to word and to refresh it. Whoever brings it into sight does both first.
    virtual bool InSight() const { return true; }

    // A message that the base does not know; true when it is dealt with. `result` is what the procedure returns.
    virtual bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    // A member has been taken from its control, or a control without a row was clicked. True when dealt with.
    virtual void OnChanged(int id);
    virtual bool OnClicked(int id);

    // A key on its way to the form or one of its controls; true when it was for the form. Modeless forms only.
    virtual bool OnKey(const MSG& message);

    // Fonts, pictures and colours: at the load, and whenever scale, theme or contrast have changed.
    virtual void OnLooks() {}

    // The size has changed, and the anchored controls have followed.
    virtual void OnLayout() {}

    // The back of the form and its labels; the system's own when there is none.
    virtual std::optional<COLORREF> BackColour() const { return std::nullopt; }

    // Of a label: its row's, and the system's in high contrast.
    virtual COLORREF TextColour(int id) const;

    // Where the keyboard goes when its control is disabled; 0 is the next control.
    virtual int FocusInsteadOf(int) const { return 0; }

    ToolTips tips;

private:
    static INT_PTR CALLBACK Thunk(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static bool KeyThunk(const MSG& message);
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
    bool OnInitDialog(HWND dialog);
    bool OnCommand(int id, int code);
    bool OnRowCommand(const ControlRow& row, int code);
    bool OnRowClicked(const ControlRow& row);
    bool OnScroll(HWND slider);
    bool OnNotify(const NMHDR& notice);
    void OnDestroy();
    INT_PTR BrushOf(HDC paper, HWND control);

    const ControlRow* RowOf(int id) const;
    void Take(const ControlRow& row, const std::function<void(HWND)>& how);
    void ShowRow(const ControlRow& row, unsigned panels);
    void EnableRow(const ControlRow& row);

    void Look();
    void MakeFonts();
    void RememberDesign();
    void Lay();
    void LimitSize(MINMAXINFO& limits) const;
    RECT PlaceOf(const ControlRow& row, int moreWidth, int moreHeight) const;

    struct Design {  // as in the template, at this scale
        int dpi = 0;
        SIZE client{};
        SIZE window{};
        std::map<int, RECT> controls;
    };

    static inline HelpOpener openHelp = nullptr;

    const int resource;
    HWND window = nullptr;
    bool modal = false;
    bool showing = false;  // what the controls report meanwhile is our own doing
    int wordedIn = 0;      // the language
    std::vector<ControlRow> rows;
    Mnemonics takenLetters;
    Design design;
    std::map<int, HFONT> fonts;
    HBRUSH back = nullptr;
};

// To the middle of the screen; neither sized nor activated.
void PutInMiddle(HWND form);
