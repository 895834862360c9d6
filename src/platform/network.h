// The network, as far as the program uses it: one short text is fetched from a server. Nothing here pumps.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace platform {

// InternetGetConnectedStateEx: whether the computer has a connection at all, which says nothing of any server.
bool IsConnected();

// What the server answers to a request for `address` (http or https), or the first `mostBytes` of it: no more is read,
// however much there is. Empty on any failure: no server, a status other than 200, a bad certificate, no end within
// `limitMs`. No cookies, no cache, no passwords. A redirect is followed, but not from https to plain http. Blocks for
// `limitMs` at most, and lets in what is sent to the program's windows meanwhile.
std::string FetchText(const std::string& address, std::size_t mostBytes, std::int64_t limitMs);

}  // namespace platform
