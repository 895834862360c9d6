// Text on its way to the clipboard.
#pragma once

#include <windows.h>

#include <string>

// False when another program holds the clipboard, or there is no memory.
bool CopyToClipboard(HWND owner, const std::string& text);
