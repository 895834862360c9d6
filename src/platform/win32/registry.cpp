#include "platform/registry.h"

#include <algorithm>
#include <memory>

#include "win32/handles.h"

namespace platform {
namespace {

struct CloseKey {
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<std::remove_pointer_t<HKEY>, CloseKey>;

LSTATUS Open(const std::string& path, REGSAM access, Key& key) {
    HKEY opened = nullptr;
    const LSTATUS status = RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, access, &opened);
    if (status == ERROR_SUCCESS) key.reset(opened);
    return status;
}

LSTATUS Create(const std::string& path, Key& key) {
    HKEY created = nullptr;
    const LSTATUS status =
        RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &created, nullptr);
    if (status == ERROR_SUCCESS) key.reset(created);
    return status;
}

// Fills `text` with as many bytes as fit it, and makes it as long as the value is.
LSTATUS Query(const Key& key, const std::string& value, DWORD& type, std::string& text) {
    DWORD size = static_cast<DWORD>(text.size());
    const LSTATUS status =
        RegQueryValueExA(key.get(), value.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
    text.resize(size);
    return status;
}

}  // namespace

std::optional<std::string> ReadRegistry(const std::string& key, const std::string& value) {
    Key opened;
    if (Open(key, KEY_QUERY_VALUE, opened) != ERROR_SUCCESS) return {};
    DWORD type = REG_NONE;
    std::string text(260, '\0');
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) status = Query(opened, value, type, text);
    if (status != ERROR_SUCCESS || (type != REG_SZ && type != REG_EXPAND_SZ)) return {};
    return text.substr(0, text.find('\0'));  // the terminating zero belongs to the value, but not in every program
}

bool WriteRegistry(const std::string& key, const std::string& value, const std::string& text) {
    Key created;
    if (Create(key, created) != ERROR_SUCCESS) return false;
    return RegSetValueExA(created.get(), value.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(text.size() + 1)) == ERROR_SUCCESS;
}

bool DeleteRegistryValue(const std::string& key, const std::string& value) {
    Key opened;
    LSTATUS status = Open(key, KEY_SET_VALUE, opened);
    if (status == ERROR_SUCCESS) status = RegDeleteValueA(opened.get(), value.c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

}  // namespace platform
