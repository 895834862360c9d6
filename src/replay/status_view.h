// What a run shows: `executing`, with the list of actions, the status label and the progress bar, and `executing2`,
// the small framed window with the job's name. The forms implement this; in the tests a stand-in does. Positions and
// sizes are screen pixels. Nothing here pumps.
#pragma once

#include <cstdint>
#include <string>

#include "platform/types.h"

namespace status_view {

// --- executing ---
void ShowExecuting();  // an `executing` left over from the run before is used again
bool ExecutingVisible();
platform::Rect ExecutingRectangle();
void MoveExecuting(std::int32_t left);
void SetStatusLabel(const std::string& text);
void StopDodging();  // clears the dodging flag: the window no longer moves away from the pointer
void ShowCloseButton(bool show);

// List1. Indexes are zero-based; an index that does not exist is ignored.
void ClearList();
void AddLine(const std::string& text);
void InsertLine(int index, const std::string& text);
void SetLine(int index, const std::string& text);
std::string LineText(int index);  // empty for an index that does not exist
void SelectLine(int index);
int SelectedLine();     // -1 for none
void ScrollListDown();  // TopIndex + 1

// Pbar.
void ShowBar(bool show);
void SetBar(int value);  // cut to 0..BarMaximum()
int BarValue();
int BarMaximum();  // at least 1

// --- executing2 ---
void ShowExecuting2(const std::string& jobName);
void UnloadExecuting2();
bool Executing2Visible();
platform::Rect Executing2Rectangle();
void MoveExecuting2(std::int32_t left);
void SetSecondLabel(const std::string& text);

// Pixels per 1440 twips: twips = pixels * 1440 / this. The rule that sends a window to the other side counts in twips.
int PixelsPerInch();

}  // namespace status_view
