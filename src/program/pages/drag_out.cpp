#include "pages/drag_out.h"

#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

namespace {

// Lets the drag go on for as long as the button is down. It lives on the stack of the drag: nobody counts it.
class WhileButtonIsDown final : public IDropSource {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) noexcept override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropSource);
        *result = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 1; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) noexcept override {
        if (escape) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) noexcept override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

// OLE for as long as it lives; a thread may ask for it more than once.
class Ole {
public:
    Ole() : ready(SUCCEEDED(OleInitialize(nullptr))) {}
    ~Ole() {
        if (ready) OleUninitialize();
    }
    Ole(const Ole&) = delete;
    Ole& operator=(const Ole&) = delete;
    bool Ready() const { return ready; }

private:
    bool ready;
};

// The shell's own description of the file, which holds CF_HDROP among other formats; null when there is none.
IDataObject* DescriptionOf(const std::string& path) {
    PIDLIST_ABSOLUTE item = ILCreateFromPathA(path.c_str());
    if (item == nullptr) return nullptr;
    IShellFolder* folder = nullptr;
    PCUITEMID_CHILD child = nullptr;
    void* description = nullptr;
    if (SUCCEEDED(SHBindToParent(item, IID_IShellFolder, reinterpret_cast<void**>(&folder), &child))) {
        folder->GetUIObjectOf(nullptr, 1, &child, IID_IDataObject, nullptr, &description);
        folder->Release();
    }
    ILFree(item);
    return static_cast<IDataObject*>(description);
}

}  // namespace

void DragFileOut(const std::string& path) {
    const Ole ole;
    if (!ole.Ready()) return;
    IDataObject* const file = DescriptionOf(path);
    if (file == nullptr) return;
    WhileButtonIsDown source;
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(file, &source, DROPEFFECT_COPY, &effect);
    file->Release();
}
