// How a record leaves the hotkey table or the schedule table. The two share the rule and, oddly, one text of refusal.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/product.h"
#include "base/runtime_failure.h"
#include "platform/boxes.h"

// False, after a box, when the table is empty (`nothingThere`), or has one record that is not at `index`. Any other
// index that does not exist is a range failure about `what`.
template <class Record>
bool DeleteRecord(std::vector<Record>& table, std::ptrdiff_t index, const char* nothingThere, const char* what) {
    if (table.empty()) {
        platform::ShowBox(nothingThere, ProductName);
        return false;
    }
    if (table.size() == 1 && index != 0) {
        platform::ShowBox("Error deleting hotkey!", ProductName);
        return false;
    }
    CheckedAt(table, index, what);
    table.erase(table.begin() + index);
    return true;
}
