#include "puppet.h"

#include <string>
#include <thread>

namespace contract {
namespace {

// Read by the other process, as a window's properties can be.
void CountClick(HWND window) {
    const auto clicks = reinterpret_cast<ULONG_PTR>(GetPropA(window, ClicksProperty));
    SetPropA(window, ClicksProperty, reinterpret_cast<HANDLE>(clicks + 1));
}

LRESULT CALLBACK ContractProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN) CountClick(window);
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT CALLBACK StubbornProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING && IsWindowVisible(window)) ::Sleep(INFINITE);
    return DefWindowProcA(window, message, wParam, lParam);
}

// A hook of this thread alone.
LRESULT CALLBACK RefuseToBeActive(int code, WPARAM wParam, LPARAM lParam) {
    char className[100] = "";
    if (code == HCBT_ACTIVATE) GetClassNameA(reinterpret_cast<HWND>(wParam), className, sizeof className);
    if (std::string(className) == ShyClass) return 1;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// A class of this name would hide the system's own one, so that is left alone.
bool IsOfTheSystem(const char* name) {
    return std::string(name) == "Edit";
}

void RegisterClassOf(const char* name) {
    if (IsOfTheSystem(name)) return;
    if (std::string(name) == ShyClass) SetWindowsHookExA(WH_CBT, RefuseToBeActive, nullptr, GetCurrentThreadId());
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = std::string(name) == StubbornClass ? StubbornProcedure : ContractProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);  // refused for a class that is there already, which is well
}

LRESULT Obey(Order order, const OrderData& data) {
    switch (order) {
        case Order::Add:
            return reinterpret_cast<LRESULT>(MakeWindow(data));
        case Order::Remove:
            return DestroyWindow(data.window);
        case Order::Rename:
            return SetWindowTextA(data.window, data.caption);
        case Order::Focus:
            return SetForegroundWindow(GetAncestor(data.window, GA_ROOT)) && SetFocus(data.window);
        case Order::Nap:
            return PostThreadMessageA(GetCurrentThreadId(), WM_APP, data.ms, 0);  // after the answer
    }
    return 0;
}

LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_COPYDATA) return DefWindowProcA(window, message, wParam, lParam);
    const auto* copied = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    return Obey(static_cast<Order>(copied->dwData), *static_cast<const OrderData*>(copied->lpData));
}

void EndWithProcess(DWORD process) {
    const HANDLE parent = OpenProcess(SYNCHRONIZE, FALSE, process);
    if (parent != nullptr) WaitForSingleObject(parent, INFINITE);
    ExitProcess(1);
}

}  // namespace

HWND MakeWindow(const OrderData& order) {
    RegisterClassOf(order.className);
    DWORD style = order.parent != nullptr ? WS_CHILD : WS_POPUP;
    if (order.visible) style |= WS_VISIBLE;
    if (!order.enabled) style |= WS_DISABLED;
    const auto id = reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(order.controlId));
    const RECT& rect = order.rect;
    const HWND window =
        CreateWindowExA(0, order.className, order.caption, style, rect.left, rect.top, rect.right - rect.left,
                        rect.bottom - rect.top, order.parent != nullptr ? order.parent : order.owner,
                        order.parent != nullptr ? id : nullptr, GetModuleHandleA(nullptr), nullptr);
    if (order.parent == nullptr && order.visible) SetForegroundWindow(window);
    return window;
}

int RunPuppet(const char* name, DWORD parentProcess) {
    std::thread(EndWithProcess, parentProcess).detach();
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = ControlProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = PuppetClass;
    RegisterClassA(&windowClass);
    CreateWindowExA(0, PuppetClass, name, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.hwnd == nullptr && message.message == WM_APP) ::Sleep(static_cast<DWORD>(message.wParam));
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

}  // namespace contract
