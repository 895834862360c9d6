#include "platform/shortcut.h"

#include "win32/com.h"
// After <windows.h>, which it needs.
#include <shlobj.h>

namespace platform {
namespace {

constexpr DWORD UpdateLink = 4;  // SLR_UPDATE

bool Describe(const Owned<IShellLinkA>& link, const Shortcut& shortcut) {
    return SUCCEEDED(link->SetPath(shortcut.target.c_str())) &&
           SUCCEEDED(link->SetWorkingDirectory(shortcut.workingDirectory.c_str())) &&
           SUCCEEDED(link->SetArguments("")) && SUCCEEDED(link->SetDescription(shortcut.description.c_str())) &&
           SUCCEEDED(link->SetIconLocation("", 0)) && SUCCEEDED(link->SetShowCmd(shortcut.showCommand));
}

bool SaveTo(const Owned<IShellLinkA>& link, const std::string& linkPath) {
    Owned<IPersistFile> file;
    if (FAILED(link->QueryInterface(IID_IPersistFile, file.UntypedPlace()))) return false;
    wchar_t path[MAX_PATH] = L"";
    if (MultiByteToWideChar(CP_ACP, 0, linkPath.c_str(), -1, path, MAX_PATH) == 0) return false;
    return SUCCEEDED(file->Save(path, TRUE));
}

}  // namespace

bool WriteShortcut(const std::string& linkPath, const Shortcut& shortcut) {
    const Apartment apartment;
    Owned<IShellLinkA> link;
    if (FAILED(
            CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA, link.UntypedPlace()))) {
        return false;
    }
    if (!Describe(link, shortcut)) return false;
    link->Resolve(nullptr, UpdateLink);  // a target that is not found is the shell's affair
    return SaveTo(link, linkPath);
}

}  // namespace platform
