// What the rules of the schedule page ask of its form. The form implements this; in the tests a stand-in does. Only
// OpenMenu_Schedule pumps.
#pragma once

namespace schedule_page_view {

void Show();  // the controls, as schedulePage, scheduleList.info and upcomingArea have them
enum class Focus { Combo1, schedule_save_as };
void FocusOn(Focus control);  // schedule_save_as with all of its text selected
void OpenMenu_Schedule();     // at the cursor

}  // namespace schedule_page_view
