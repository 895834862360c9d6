#include "platform/network.h"

#include <memory>

#include "base/product.h"
#include "platform/clock.h"
#include "win32/bounded_call.h"
#include "win32/handles.h"
#include "win32/system_library.h"
// After <windows.h>, which it needs.
#include <wininet.h>

namespace platform {
namespace {

template <class FunctionPointer>
FunctionPointer WinInetFunction(const char* name) {
    return SystemFunction<FunctionPointer>("wininet.dll", name);
}

// The functions of the library, which is loaded when the network is asked for the first time.
struct WinInet {
    decltype(&InternetGetConnectedStateExA) connectedState =
        WinInetFunction<decltype(connectedState)>("InternetGetConnectedStateExA");
    decltype(&InternetOpenA) open = WinInetFunction<decltype(open)>("InternetOpenA");
    decltype(&InternetSetOptionA) setOption = WinInetFunction<decltype(setOption)>("InternetSetOptionA");
    decltype(&InternetQueryOptionA) queryOption = WinInetFunction<decltype(queryOption)>("InternetQueryOptionA");
    decltype(&InternetOpenUrlA) openUrl = WinInetFunction<decltype(openUrl)>("InternetOpenUrlA");
    decltype(&HttpQueryInfoA) queryInfo = WinInetFunction<decltype(queryInfo)>("HttpQueryInfoA");
    decltype(&InternetReadFile) readFile = WinInetFunction<decltype(readFile)>("InternetReadFile");
    decltype(&InternetCloseHandle) close = WinInetFunction<decltype(close)>("InternetCloseHandle");

    bool CanFetch() const {
        return open != nullptr && setOption != nullptr && queryOption != nullptr && openUrl != nullptr &&
               queryInfo != nullptr && readFile != nullptr && close != nullptr;
    }
};

const WinInet& Library() {
    static const WinInet library;
    return library;
}

struct CloseInternet {
    void operator()(HINTERNET handle) const { Library().close(handle); }
};
using Internet = std::unique_ptr<std::remove_pointer_t<HINTERNET>, CloseInternet>;

constexpr DWORD FetchFlags = INTERNET_FLAG_NO_COOKIES | INTERNET_FLAG_RELOAD | INTERNET_FLAG_PRAGMA_NOCACHE |
                             INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_AUTH | INTERNET_FLAG_NO_UI |
                             INTERNET_FLAG_IGNORE_REDIRECT_TO_HTTPS;

// The caller waits no longer than this; the thread that it leaves behind is to end, too.
Internet OpenSession(DWORD limitMs) {
    Internet session(Library().open(ProductName, INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
    for (const DWORD option :
         {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT, INTERNET_OPTION_RECEIVE_TIMEOUT}) {
        Library().setOption(session.get(), option, &limitMs, sizeof limitMs);
    }
    return session;
}

bool Succeeded(const Internet& answer) {
    DWORD status = 0;
    DWORD size = sizeof status;
    return Library().queryInfo(answer.get(), HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status, &size,
                               nullptr) &&
           status == HTTP_STATUS_OK;
}

bool IsSecure(const std::string& address) {
    return _strnicmp(address.c_str(), "https:", 6) == 0;
}

// Where redirects have led to. Windows stops at a step from https to http by itself; not everybody does.
bool StaysSecure(const std::string& address, const Internet& answer) {
    char now[2048] = "";
    DWORD size = sizeof now;
    if (!IsSecure(address)) return true;
    return Library().queryOption(answer.get(), INTERNET_OPTION_URL, now, &size) && IsSecure(now);
}

std::string ReadStart(const Internet& answer, std::size_t mostBytes) {
    std::string text(mostBytes, '\0');
    std::size_t length = 0;
    DWORD read = 1;
    while (length < mostBytes && read > 0) {
        if (!Library().readFile(answer.get(), text.data() + length, static_cast<DWORD>(mostBytes - length), &read)) {
            return {};
        }
        length += read;
    }
    text.resize(length);
    return text;
}

std::string Fetch(const std::string& address, std::size_t mostBytes, DWORD limitMs) {
    if (!Library().CanFetch()) return {};
    const Internet session = OpenSession(limitMs);
    if (session == nullptr) return {};
    const Internet answer(Library().openUrl(session.get(), address.c_str(), nullptr, 0, FetchFlags, 0));
    if (answer == nullptr || !Succeeded(answer) || !StaysSecure(address, answer)) return {};
    return ReadStart(answer, mostBytes);
}

}  // namespace

bool IsConnected() {
    DWORD flags = 0;
    char name[512] = "";
    return Library().connectedState != nullptr && Library().connectedState(&flags, name, sizeof name, 0);
}

// The time limits of the system hold for each step alone, and the look-up of a name has none.
std::string FetchText(const std::string& address, std::size_t mostBytes, std::int64_t limitMs) {
    const auto text = std::make_shared<std::string>();
    const BoundedAnswer answer = CallUntil(Microseconds() + limitMs * 1000, [=] {
        *text = Fetch(address, mostBytes, static_cast<DWORD>(limitMs));
        return true;
    });
    return answer == BoundedAnswer::Yes ? *text : std::string();
}

}  // namespace platform
