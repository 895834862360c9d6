// executing: the list of a run's actions, the status label and the progress bar. It stays up after the run, with a
// button that closes it, and is used again by the next run.
//
// While a run goes on (the dodging flag), the window must leave no trace in it: it never takes the activation or the
// focus, whatever is clicked, and moves to the other side of the screen from under the pointer. Afterwards it is a
// window like any other, for the keyboard too. Nothing here pumps.
#pragma once

#include "status/executing_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class ExecutingForm : public Form {
public:
    ExecutingForm() : Form(executing_dialog) {}

    void ShowAt(int top);  // with its upper edge at `top` when it is new
    void SetDodging(bool flag);
    void ShowHelpButton(bool show) const;
    void ShowWhyButton(bool show) const;

private:
    static LRESULT CALLBACK ControlThunk(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR) noexcept;
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::Running; }
    void OnInit() override;
    void OnUnload() override;
    void OnLooks() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnClicked(int id) override;
    std::optional<COLORREF> BackColour() const override { return GetSysColor(COLOR_WINDOW); }

    void OnWhy();
    bool OnListMessage(UINT message);
    void OnMouseMove();
    void FitList() const;

    bool dodging = false;
};

extern ExecutingForm executing;
