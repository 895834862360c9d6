#include "update/update_server.h"

#include <algorithm>

#include "base/product.h"
#include "base/text.h"
#include "platform/registry.h"
#include "platform/text.h"

namespace {

// The address of what is shipped.
constexpr const char* ShippedServer = "";

// It is handed to the shell, which would start a program as well: it must be an address and nothing else.
bool IsWebAddress(const std::string& text) {
    const std::string lower = platform::LowerCase(text);
    const bool isPlain = std::all_of(text.begin(), text.end(), [](char each) { return each > ' ' && each != '"'; });
    return isPlain && (lower.starts_with("http://") || lower.starts_with("https://"));
}

std::string Below(const std::string& name) {
    const std::string server = UpdateServer();
    return server.empty() ? server : server + name;
}

}  // namespace

std::string UpdateServer() {
    const std::string key = std::string("Software\\") + ProductName;
    const std::string address = Trim(platform::ReadRegistry(key, "UpdateServer").value_or(ShippedServer));
    if (!IsWebAddress(address)) return {};
    return address.ends_with('/') ? address : address + "/";
}

std::string VersionFile() {
    return Below("ver.txt");
}

std::string CustomersPage() {
    return Below("customers/");
}
