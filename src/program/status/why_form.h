// why: the answer to "why was my window not found?", a sentence and a table of what the search has looked at. One form
// for the last run and for the rows of the editor; it shows one explanation at a time. What it says is made in
// replay/explanation_text.h.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "replay/explanation_text.h"
#include "status/why_ids.h"
#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class WhyForm : public Form {
public:
    WhyForm() : Form(why_dialog) {}

    // Above its owner, in place of what it shows already.
    void ShowFor(const Explanation& shown, HWND owner);
    using Form::Close;

private:
    std::vector<ControlRow> Rows() override;
    std::string HelpTopic() const override { return help_topic::WindowNotFound; }
    std::string Caption() const override;
    void OnInit() override;
    void OnUnload() override;
    void OnLooks() override;
    void OnLayout() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnClicked(int id) override;
    void PodesiRjecnik() override;

    void OnCopy();  // pumps where a box tells that it is not possible
    void OnGetText(LVITEMA& item) const;
    LRESULT OnDraw(NMLVCUSTOMDRAW& draw) const;
    static constexpr std::size_t Columns = 4;
    void FitReason() const;
    void FitColumns() const;
    std::array<int, Columns> WidthsOfTexts() const;

    Explanation explanation;
    std::vector<ExplanationRow> table;
    HFONT headingFont = nullptr;
};

extern WhyForm why;
