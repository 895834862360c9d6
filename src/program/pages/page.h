// A page of the main window: a form in one of its tabs. The main window holds an array of them (main/main_form.cpp) and
// asks all of them the same few things.
#pragma once

#include "toolkit/form.h"
#include "toolkit/help_topics.h"

class Page : public Form {
public:
    using Form::Form;

    void CreateIn(HWND mainWindow);  // not visible; made by the main window when it is first seen

    // In front of the others, or behind them. What has changed meanwhile is caught up with.
    void BringIntoSight(bool inSight);

    virtual std::string TabCaption() const = 0;
    virtual void StaviFocus() const = 0;  // ("set the focus"): to the control that one wants first
    virtual void OnEnter() {}             // Enter, anywhere but on a button

    // A key before the control with the focus gets it; true when it was for the page.
    virtual bool OnKeyDown(int) { return false; }

private:
    bool InSight() const override { return isInSight; }

    bool isInSight = false;
};
