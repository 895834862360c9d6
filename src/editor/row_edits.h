// What the user does to selected rows: the grid's selection, delete, delay, duration, and the pane beside the grid.
// Rows are grid rows from 0, without the header. Nothing pumps but where a box is shown.
#pragma once

#include <cstdint>
#include <string>

// The grid's selection, one block: the row with the focus, and the other end. Meaningless without rows.
struct EditSelection {
    std::int32_t Row = 0;
    std::int32_t RowSel = 0;
};
extern EditSelection editSelection;

// GetOdkudDokud ("get from where to where"): the selected rows, the lower first.
void GetOdkudDokud(std::int32_t& from, std::int32_t& to);

// What stands in the pane, and what of it can be used.
struct EventPane {
    std::string delay_mk;  // ms as a number; empty when the selected rows differ
    std::string duration_mk;
    bool pickersEnabled = false;
    bool delay_set = false;  // enabled
    bool duration_set = false;
    std::string wait_for_window_text;
    std::int32_t wait_for_window_ms = 0;  // seconds
    std::int32_t if_no_window = 0;        // place in the list; -1 for a value that is none of it
    bool targetApplies = false;  // the target fields are enabled, their labels in the colour of a window's text
    std::string Label6;          // numbers of the row's first and last event
    std::string Label7;
};
extern EventPane eventPane;

// Whether Save is enabled: the job is not as it was opened or last saved.
bool SaveIsEnabled();
void SaveWasDone();

// The user has selected other rows: the pane is filled, and the keystrokes with it.
void SelectRows(std::int32_t row, std::int32_t rowSel);

// A press of the mouse in the grid, and every fold: the timing fields as the selection has them.
void grid_mouseDown();

// The button and the Delete key. Asks first.
void delete_event();

// Something was typed into a number picker; it changes nothing in the job yet.
void DelayTyped(const std::string& text);
void DurationTyped(const std::string& text);

// The buttons, with what stands in the pickers.
void delay_set_Click();
void duration_set_Click();

// Each of these rows gets this delay (ms from the end of the row before), and all rows behind it move along.
void SetNewDelay(std::int32_t from, std::int32_t to, std::int32_t value);

// Each of these rows gets this duration (ms); its events keep their place in proportion. Those that shared one moment
// are spread evenly. A row of one event has none to change.
void SetNewDuration(std::int32_t from, std::int32_t to, std::int32_t value);

// The target fields of one selected row.
void WaitForWindowChanged(std::int32_t seconds);
void IfNoWindowChanged(std::int32_t place);

// Scrollaj ("scroll"): the row at the top of the grid after a turn of the wheel. It moves by one row, and only for one
// notch exactly.
std::int32_t Scrollaj(std::int32_t delta, std::int32_t topRow, bool lastRowVisible);

// Ctrl+Z and Ctrl+Y, and their buttons.
void Undo();
void Redo();

// After a change of the row structure: rows, selection and pane.
void SelectRowAtEvent(std::int32_t event);
void RowsHaveChanged(std::int32_t selectFrom, std::int32_t selectTo);
