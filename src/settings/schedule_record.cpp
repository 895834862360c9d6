#include "settings/schedule_record.h"

#include "settings/delete_record.h"
#include "settings/settings.h"

void DeleteSchedule(std::ptrdiff_t index) {
    DeleteRecord(settings.Schedules, index, "Error deleting list element. There are no elements in list.", "Schedule");
}
