#include "toolkit/tool_tips.h"

#include <commctrl.h>

#include "toolkit/window_tools.h"

namespace {

constexpr int WidestTip = 480;  // pixels at 100 percent

}  // namespace

void ToolTips::Create(HWND form) {
    owner = form;
    tips = nullptr;
    texts.clear();
}

// Nothing about a tip may take the activation away from the window that the user works in.
void ToolTips::MakeWindow() {
    tips = CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, TOOLTIPS_CLASSA, nullptr,
                           WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, owner, nullptr, ProgramInstance(), nullptr);
    SendMessageA(tips, TTM_SETMAXTIPWIDTH, 0, MulDiv(WidestTip, DpiOf(owner), USER_DEFAULT_SCREEN_DPI));
}

void ToolTips::Set(int control, const std::string& text) {
    const auto known = texts.find(control);
    if (known == texts.end() ? text.empty() : known->second == text) return;
    if (tips == nullptr) MakeWindow();
    std::string& kept = texts[control] = text;
    TOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(owner, control));
    tool.lpszText = kept.data();
    SendMessageA(tips, known == texts.end() ? TTM_ADDTOOLA : TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}
