// executing2: the small framed window that says which job runs. It lives for one run, floats above everything, lets
// what is below shine through, and never takes the activation. Nothing here pumps.
#pragma once

#include <string>

#include "toolkit/floating_form.h"

class Executing2Form : public FloatingForm {
public:
    Executing2Form();
    void ShowJob(const std::string& jobName);

private:
    std::vector<ControlRow> Rows() override;
    bool OnLoad() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
};

extern Executing2Form executing2;
