#include "platform/shell_folders.h"

#include <memory>

#include "base/text.h"
#include "win32/code_page.h"
#include "win32/handles.h"
#include "win32/open_box.h"
// After <windows.h>, which they need.
#include <commdlg.h>
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

std::string ExecutablePath() {
    std::wstring path(LongestWidePath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), LongestWidePath));
    return PathInCodePage(path).value_or("");
}

std::string ExecutableFolder() {
    const std::string path = ExecutablePath();
    return path.substr(0, path.find_last_of('\\'));
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

std::string AskFileToSave(const std::string& title, const std::string& kind, const std::string& extension,
                          const std::string& path) {
    constexpr std::size_t LongestPath = 4096;
    std::string chosen = path;
    chosen.resize(LongestPath);
    const std::string filter = kind + '\0' + "*" + extension + '\0';
    OPENFILENAMEA question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = GetActiveWindow();
    question.lpstrFilter = filter.c_str();
    question.lpstrFile = chosen.data();
    question.nMaxFile = static_cast<DWORD>(chosen.size());
    question.lpstrTitle = title.c_str();
    question.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_EXPLORER;
    const OpenBox box(question.hwndOwner);
    return GetSaveFileNameA(&question) ? chosen.c_str() : "";
}

}  // namespace platform
