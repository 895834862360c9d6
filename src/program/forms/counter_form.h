// counter, the countdown before a recording: a caption and a large number, and nothing around them. It floats over the
// desktop, and what is clicked on it goes to what is below. It implements counter_view; nothing here pumps.
#pragma once

#include "toolkit/floating_form.h"

class CounterForm : public FloatingForm {
public:
    CounterForm();

    void SetDigitsBlack(bool black);
    void ShowNumber(int number) const;

private:
    std::vector<ControlRow> Rows() override;
    bool OnLoad() override;
    bool OnMessage(UINT, WPARAM, LPARAM, LRESULT&) override { return false; }  // no frame
    std::optional<COLORREF> BackColour() const override { return FormFrame::LeftOut; }
    COLORREF TextColour(int id) const override;

    bool digitsBlack = false;
};

extern CounterForm counter;
