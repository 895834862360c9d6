// What the rows of the job in the editor say: times, window names, and the eight columns of the grid. All read
// editState and change nothing. Rows are grid rows from 0, without the header. The words are those of the dictionary,
// in the language of its last lookup. A row out of range is a range failure, a difference of times that 32 bits cannot
// hold an overflow failure; the columns show it. A window that the job only claims to have has no name. Only the boxes
// for a row of an unknown kind pump.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

// Hours, minutes and seconds, two digits each, hours modulo 60: "01:02:03".
std::string TimeString(std::int32_t seconds);

// The same with three digits of milliseconds behind it: "01:02:03.045".
std::string timeStr(std::int32_t ms);

// Of a grid row: time of its first event, time of its last, index of its first. A row of an unknown kind shows a box
// and gives 0.
std::int32_t Event_StartTime(std::int32_t row);
std::int32_t Event_EndTime(std::int32_t row);
std::int32_t Event_I_Begin(std::int32_t row);

// ms from the end of the row before (for row 0 from the start of the job) to this row; negative after some edits.
std::int32_t GetDelay(std::int32_t row);

// ms from the first event to the last; 0 for a row of an unknown kind.
std::int32_t GetEventDuration(std::int32_t row);

// The same without the limit of 32 bits: the times of a damaged job can lie farther apart, and the grid shows what they
// are.
std::int64_t DelayOf(std::int32_t row);
std::int64_t DurationOf(std::int32_t row);

// What a mouse row does: "Left Click", "MOVE". A press whose row has more than two events is a type failure: no fold
// makes one.
std::string GetInputStr(std::int32_t mouseRowIndex);

// The top-level window of a chain: its caption, or failing that what WindowNameiElement says. "" for a negative
// index.
std::string WindowName(std::int32_t chainIndex);

// WindowNameiElement ("window name and element"): the top-level window and the element in it,
// "Untitled - Notepad -> (Text field)". "" for NoWindowMarker; any other negative index is negated first, in place.
std::string WindowNameiElement(std::int32_t& chainIndex);

inline constexpr std::size_t GridColumnCount = 8;
using GridColumns = std::array<std::string, GridColumnCount>;

// StaviUGrid ("put into the grid"): the columns as the grid shows them. A keystroke row of wheel notches shows as a
// mouse row, and a run of moves has no number.
GridColumns StaviUGrid(const std::string& number, const std::string& col1, const std::string& col2,
                       const std::string& col3, const std::string& col4, const std::string& col5,
                       const std::string& col6, const std::string& col7);

// The columns of a grid row.
GridColumns RowColumns(std::int32_t row);
