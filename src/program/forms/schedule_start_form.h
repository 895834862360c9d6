// schedule_start_form: floats in the corner before a scheduled run begins, and offers Cancel. When it is there and what
// it says is decided in scheduler/schedule_start.h; it implements schedule_start_view.
#pragma once

#include "toolkit/floating_form.h"

class ScheduleStartWindow : public FloatingForm {
public:
    ScheduleStartWindow();

private:
    std::vector<ControlRow> Rows() override;
    bool OnLoad() override;
};

extern ScheduleStartWindow scheduleStartWindow;
