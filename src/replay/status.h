// The words and the moves of the status windows; what they look like is the view's affair.
#pragma once

#include <string>

// Codes of setStatus; 6 uses the text.
inline constexpr int StatusRunning = 0;
inline constexpr int StatusWebPage = 1;
inline constexpr int StatusFinished = 2;
inline constexpr int StatusCanceled = 3;
inline constexpr int StatusFailed = 4;  // leaves the label as it is
inline constexpr int StatusWaitingForWindow = 6;

// Sets the `status` label of `executing`. An unknown code leaves it as it is.
void setStatus(int code, const std::string& text = {});

// Premjesti ("move over"), of executing2: to the right with `force` or when the window stands on the left, else to the
// left; a visible `executing` goes with it.
void Premjesti(bool force);
