// A dialog with the program's own controls, for the desktop tests: what they tell goes to a list box, a line each, and
// how they stand to a label, as JSON.

#include <windows.h>

#include "controls/list_control.h"
#include "controls/number_picker.h"
#include "controls/time_picker.h"
#include "gallery_ids.h"
#include "toolkit/window_tools.h"

namespace {

constexpr UINT_PTR StateTimer = 1;
constexpr UINT StatePauseMs = 50;
constexpr const char* Names[] = {"Abacus",  "abstract of the month",
                                 "Backup",  "Cash book",
                                 "Absence", "Invoices",
                                 "Zebra",   "Mail",
                                 "Orders",  "Payroll",
                                 "Query",   "Reports"};

struct Gallery {
    HWND window = nullptr;
    ListModel jobs;
    ListControl list;
    NumberPicker countdown{1, 10};
    NumberPicker offset{-50, 50};
    TimePicker start;
    std::string state;
};
Gallery gallery;

std::string Number(int value) {
    return std::to_string(value);
}

void Note(const std::string& line) {
    SendDlgItemMessageA(gallery.window, gallery_events, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    const LRESULT count = SendDlgItemMessageA(gallery.window, gallery_events, LB_GETCOUNT, 0, 0);
    SendDlgItemMessageA(gallery.window, gallery_events, LB_SETTOPINDEX, static_cast<WPARAM>(count - 1), 0);
}

std::string RectangleText(const platform::Rect& rect) {
    return "[" + Number(rect.left) + "," + Number(rect.top) + "," + Number(rect.right) + "," + Number(rect.bottom) +
           "]";
}

std::string State() {
    const ListModel& jobs = gallery.jobs;
    const bool bar = (GetWindowLongPtrA(gallery.list.Window(), GWL_STYLE) & WS_VSCROLL) != 0;
    return "{\"count\":" + Number(jobs.ListCount()) + ",\"selected\":" + Number(jobs.listindex()) +
           ",\"scroll\":" + Number(jobs.ScrollValue()) + ",\"bar\":" + (bar ? "true" : "false") +
           ",\"row\":" + RectangleText(jobs.RowRect(jobs.ScrollValue())) +
           ",\"gumb\":" + RectangleText(jobs.ButtonRect(jobs.listindex(), ListPart::gumb)) +
           ",\"gumb1\":" + RectangleText(jobs.ButtonRect(jobs.listindex(), ListPart::gumb1)) +
           ",\"countdown\":" + Number(gallery.countdown.Value()) + ",\"offset\":" + Number(gallery.offset.Value()) +
           ",\"start\":\"" + gallery.start.Time() + "\"}";
}

void ShowState() {
    const std::string state = State();
    if (state == gallery.state) return;
    gallery.state = state;
    SetText(gallery.window, gallery_state, state);
}

// As an owner does that has something to save: the box comes up while the button is held.
bool MayLeave() {
    if (!IsTicked(gallery.window, gallery_asks)) return true;
    return MessageBoxA(gallery.window, "Leave the row?", "Question", MB_YESNO) == IDYES;
}

void OnMouseDown(ListButton button, ListHit hit, platform::Point) {
    static const char* const buttons[] = {"left", "right", "middle"};
    Note(std::string("press ") + buttons[static_cast<int>(button)] + " " + Number(hit.index));
    const bool leaves = hit.part != ListPart::None && hit.index != gallery.jobs.listindex();
    if (leaves && !MayLeave()) gallery.jobs.CancelPress();
}

void AddRow() {
    const int index = gallery.jobs.ListCount();
    const int name = index % static_cast<int>(std::size(Names));
    gallery.jobs.AddItem(Names[name], 0, "Duration: " + Number(index + 1) + " seconds, with a note that is long");
}

void LoadList() {
    ListEvents& events = gallery.jobs.events;
    events.Click = [](int index) { Note("click " + Number(index)); };
    events.MouseDown = OnMouseDown;
    events.DblClick = [](int index) { Note("double " + Number(index)); };
    events.SmallButton1Click = [](int index) { Note("gumb " + Number(index)); };
    events.SmallButton2Click = [](int index) { Note("gumb1 " + Number(index)); };
    events.KeyLeaves = [](int) { return MayLeave(); };
    gallery.list.BeginDrag = [](int index) { Note("drag " + Number(index)); };
    gallery.jobs.SmallButton1Visible = gallery.jobs.SmallButton2Visible = true;
    gallery.list.Attach(GetDlgItem(gallery.window, gallery_list), gallery.jobs);
    gallery.list.SetSmallButtonTexts("Run", "Delete");
    for (std::size_t i = 0; i < std::size(Names); ++i) AddRow();
}

void LoadPickers() {
    gallery.countdown.Change = [] { Note("countdown " + Number(gallery.countdown.Value())); };
    gallery.offset.Change = [] { Note("offset " + Number(gallery.offset.Value())); };
    gallery.start.Change = [] { Note("start " + gallery.start.Time()); };
    gallery.countdown.Attach(GetDlgItem(gallery.window, gallery_countdown));
    gallery.offset.Attach(GetDlgItem(gallery.window, gallery_offset));
    gallery.start.Attach(GetDlgItem(gallery.window, gallery_start));
    gallery.countdown.SetValue(5);
    gallery.offset.SetValue(0);
    gallery.start.SetTime("12:00:00");
}

void OnInitDialog(HWND window) {
    gallery.window = window;
    LoadList();
    LoadPickers();
    SetTick(window, gallery_enabled, true);
    SetTimer(window, StateTimer, StatePauseMs, nullptr);
}

void EnableAll(bool enable) {
    EnableWindow(gallery.list.Window(), enable);
    gallery.countdown.Enable(enable);
    gallery.offset.Enable(enable);
    gallery.start.Enable(enable);
}

void OnCommand(int control) {
    if (control == gallery_enabled) EnableAll(IsTicked(gallery.window, gallery_enabled));
    if (control == gallery_fewer && gallery.jobs.ListCount() > 0) gallery.jobs.RemoveItem(0);
    if (control == gallery_more) AddRow();
    if (control == IDCANCEL) EndDialog(gallery.window, 0);
}

INT_PTR CALLBACK Dialog(HWND window, UINT message, WPARAM wParam, LPARAM) noexcept {
    return Guarded<INT_PTR>(FALSE, [&]() -> INT_PTR {
        if (message == WM_INITDIALOG) OnInitDialog(window);
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) OnCommand(LOWORD(wParam));
        if (message == WM_TIMER) ShowState();
        return message == WM_INITDIALOG;
    });
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    RegisterListControl();
    RegisterNumberPicker();
    RegisterTimePicker();
    return static_cast<int>(DialogBoxParamA(ProgramInstance(), MAKEINTRESOURCEA(gallery_dialog), nullptr, Dialog, 0));
}
