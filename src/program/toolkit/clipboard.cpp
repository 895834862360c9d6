#include "toolkit/clipboard.h"

namespace {

// Zero-ended Unicode, as the clipboard wants it, which owns it once it has it. What is put there in a code page, the
// system would read in that of the keyboard's language.
HGLOBAL Copied(const std::string& text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, static_cast<SIZE_T>(length) * sizeof(wchar_t));
    void* const place = memory == nullptr ? nullptr : GlobalLock(memory);
    if (place == nullptr) return nullptr;
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, static_cast<wchar_t*>(place), length);
    GlobalUnlock(memory);
    return memory;
}

}  // namespace

bool CopyToClipboard(HWND owner, const std::string& text) {
    if (OpenClipboard(owner) == FALSE) return false;
    EmptyClipboard();
    const HGLOBAL memory = Copied(text);
    const bool copied = memory != nullptr && SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    if (!copied && memory != nullptr) GlobalFree(memory);
    CloseClipboard();
    return copied;
}
