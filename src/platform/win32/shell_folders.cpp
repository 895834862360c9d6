#include "platform/shell_folders.h"

#include <memory>

#include "base/text.h"
#include "win32/handles.h"
#include "win32/open_box.h"
// After <windows.h>, which it needs.
#include <shlobj.h>

namespace platform {
namespace {

struct FreeItems {
    void operator()(ITEMIDLIST* items) const { CoTaskMemFree(items); }
};
using Items = std::unique_ptr<ITEMIDLIST, FreeItems>;

std::optional<std::string> PathOf(const Items& items) {
    char path[MAX_PATH] = "";
    if (items == nullptr || !SHGetPathFromIDListA(items.get(), path)) return {};
    return WithoutTrailingBackslash(path);
}

int CALLBACK SelectStart(HWND browser, UINT message, LPARAM, LPARAM start) noexcept {
    if (message == BFFM_INITIALIZED) SendMessageA(browser, BFFM_SETSELECTIONA, TRUE, start);
    return 0;
}

std::optional<std::string> Browse(BROWSEINFOA& info) {
    const OpenBox box(info.hwndOwner);
    return PathOf(Items(SHBrowseForFolderA(&info)));
}

}  // namespace

std::string ExecutableFolder() {
    char path[MAX_PATH] = "";
    const std::string text(path, GetModuleFileNameA(nullptr, path, sizeof path));
    return text.substr(0, text.find_last_of('\\'));
}

std::string DesktopDirectory() {
    LPITEMIDLIST items = nullptr;
    if (FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOPDIRECTORY, &items))) return "";
    return PathOf(Items(items)).value_or("");
}

std::string CommandLineText() {
    const std::string line = GetCommandLineA();
    const std::size_t name = line.starts_with('"') ? line.find('"', 1) : line.find_first_of(" \t");
    if (name == std::string::npos) return "";
    const std::size_t start = line.find_first_not_of(" \t", name + 1);
    return start == std::string::npos ? "" : line.substr(start);
}

std::optional<std::string> BrowseForFolder(const std::string& prompt, const std::string& start) {
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);  // the new style of the browser needs it
    BROWSEINFOA info{};
    info.hwndOwner = GetActiveWindow();
    info.lpszTitle = prompt.c_str();
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    info.lpfn = SelectStart;
    info.lParam = reinterpret_cast<LPARAM>(start.c_str());
    std::optional<std::string> chosen = Browse(info);
    if (SUCCEEDED(com)) CoUninitialize();
    return chosen;
}

}  // namespace platform
