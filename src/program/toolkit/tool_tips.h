// The tool tips of a form's controls.
#pragma once

#include <windows.h>

#include <map>
#include <string>

class ToolTips {
public:
    void Create(HWND form);  // they go along with it; nothing is made before the first tip

    // An empty text shows no tip.
    void Set(int control, const std::string& text);

private:
    void MakeWindow();

    HWND owner = nullptr;
    HWND tips = nullptr;
    std::map<int, std::string> texts;
};
