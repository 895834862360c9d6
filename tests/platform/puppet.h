// The other program of the real stage: the same executable, started with a switch, with one thread that makes windows
// as it is told. Orders go to its control window by WM_COPYDATA; a window handle comes back as the result.
#pragma once

#include <windows.h>

#include <string>

namespace contract {

inline constexpr const char* PuppetSwitch = "--puppet";
inline constexpr const char* PuppetClass = "Contract puppet";
inline constexpr const char* ClicksProperty = "contract clicks";

// The class of a window that answers messages but never finishes a change of its placement.
inline constexpr const char* StubbornClass = "Contract stubborn";

// The class of a window that refuses to become active: the system then says that it did, and leaves it as it was.
inline constexpr const char* ShyClass = "Contract shy";

enum class Order : ULONG_PTR { Add, Remove, Rename, Focus, Nap };

struct OrderData {
    HWND window = nullptr;
    HWND parent = nullptr;
    HWND owner = nullptr;
    RECT rect = {};
    int controlId = 0;
    DWORD ms = 0;
    bool visible = true;
    bool enabled = true;
    char className[100] = "";
    char caption[1100] = "";
};

// The path of this executable, which is the test and the puppet.
std::string OwnPath();

// The window that an order asks for, made by the calling thread.
HWND MakeWindow(const OrderData& order);

// Runs until the program that started it ends, or somebody ends it. `name` is the caption of its control window.
int RunPuppet(const char* name, DWORD parentProcess);

}  // namespace contract
