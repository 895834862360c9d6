#include "platform/shortcut.h"

#include "win32/handles.h"
// After <windows.h>, which it needs.
#include <shlobj.h>

namespace platform {
namespace {

constexpr DWORD UpdateLink = 4;  // SLR_UPDATE

// The shell's objects need the apartment that this thread may have already.
class Apartment {
public:
    Apartment() : state(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~Apartment() {
        if (SUCCEEDED(state)) CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    HRESULT state;
};

template <class Interface>
class Owned {
public:
    Owned() = default;
    ~Owned() {
        if (object != nullptr) object->Release();
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Interface* operator->() const { return object; }
    void** Place() { return reinterpret_cast<void**>(&object); }

private:
    Interface* object = nullptr;
};

bool Describe(const Owned<IShellLinkA>& link, const Shortcut& shortcut) {
    return SUCCEEDED(link->SetPath(shortcut.target.c_str())) &&
           SUCCEEDED(link->SetWorkingDirectory(shortcut.workingDirectory.c_str())) &&
           SUCCEEDED(link->SetArguments("")) && SUCCEEDED(link->SetDescription(shortcut.description.c_str())) &&
           SUCCEEDED(link->SetIconLocation("", 0)) && SUCCEEDED(link->SetShowCmd(shortcut.showCommand));
}

bool SaveTo(const Owned<IShellLinkA>& link, const std::string& linkPath) {
    Owned<IPersistFile> file;
    if (FAILED(link->QueryInterface(IID_IPersistFile, file.Place()))) return false;
    wchar_t path[MAX_PATH] = L"";
    if (MultiByteToWideChar(CP_ACP, 0, linkPath.c_str(), -1, path, MAX_PATH) == 0) return false;
    return SUCCEEDED(file->Save(path, TRUE));
}

}  // namespace

bool WriteShortcut(const std::string& linkPath, const Shortcut& shortcut) {
    const Apartment apartment;
    Owned<IShellLinkA> link;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA, link.Place()))) {
        return false;
    }
    if (!Describe(link, shortcut)) return false;
    link->Resolve(nullptr, UpdateLink);  // a target that is not found is the shell's affair
    return SaveTo(link, linkPath);
}

}  // namespace platform
