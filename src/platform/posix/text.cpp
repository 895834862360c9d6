// Code pages by number: Windows-1252, which is that of the system here, and those of iconv.
#include "platform/text.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>

#include "code_pages/windows_1252.h"

namespace {

constexpr int Utf8CodePage = 65001;

std::string NameOf(int codePage) {
    return codePage == Utf8CodePage ? "UTF-8" : "CP" + std::to_string(codePage);
}

// One way between two encodings.
class Converter {
public:
    Converter(const std::string& to, const std::string& from) : handle(iconv_open(to.c_str(), from.c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsKnown()) iconv_close(handle);
    }

    bool IsKnown() const { return handle != reinterpret_cast<iconv_t>(-1); }

    // `replace` takes what cannot be converted off the front of its argument, and tells what stands for it.
    template <class Replace>
    std::string Convert(std::string_view text, Replace replace) {
        std::string result;
        while (!text.empty()) {
            char block[512];
            char* out = block;
            std::size_t room = sizeof block;
            char* in = const_cast<char*>(text.data());  // iconv reads it only
            std::size_t left = text.size();
            const bool failed = iconv(handle, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
            const bool isBlockFull = failed && errno == E2BIG;
            result.append(block, sizeof block - room);
            text.remove_prefix(text.size() - left);
            if (failed && !isBlockFull) result += replace(text);
        }
        return result;
    }

private:
    iconv_t handle;
};

constexpr bool IsUpperControl(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return byte >= 0x80 && byte <= 0x9F;
}

// Bytes that a code page leaves open stand for the controls of the same number, as on Windows.
std::string Utf8OfOpenByte(std::string_view& text) {
    const char byte = text.front();
    text.remove_prefix(1);
    return IsUpperControl(byte) ? std::string("\xC2") + byte : "\xEF\xBF\xBD";
}

std::string ByteOfLackingCharacter(std::string_view& utf8) {
    const bool isControl = utf8.size() > 1 && utf8[0] == '\xC2' && IsUpperControl(utf8[1]);
    const std::string byte = isControl ? std::string(1, utf8[1]) : "?";
    const auto isFollowing = [](char each) { return (static_cast<unsigned char>(each) & 0xC0) == 0x80; };
    utf8.remove_prefix(1);
    utf8.remove_prefix(
        static_cast<std::size_t>(std::find_if_not(utf8.begin(), utf8.end(), isFollowing) - utf8.begin()));
    return byte;
}

}  // namespace

namespace platform {

std::optional<std::string> FromUtf8(std::string_view utf8, int codePage) {
    if (codePage == windows_1252::Number) return windows_1252::FromUtf8(utf8);
    Converter converter(NameOf(codePage), "UTF-8");
    if (!converter.IsKnown()) return std::nullopt;
    return converter.Convert(utf8, ByteOfLackingCharacter);
}

std::optional<std::string> ToUtf8(std::string_view text, int codePage) {
    if (codePage == windows_1252::Number) return windows_1252::ToUtf8(text);
    Converter converter("UTF-8", NameOf(codePage));
    if (!converter.IsKnown()) return std::nullopt;
    return converter.Convert(text, Utf8OfOpenByte);
}

}  // namespace platform
