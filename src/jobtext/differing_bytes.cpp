#include "jobtext/differing_bytes.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::size_t ShortestRepeat = 8;  // from so many equal bytes on they are counted, and not listed
constexpr std::size_t SmallestGap = 4;     // fewer equal bytes between two runs are listed with them

// How many bytes from `at` on are the same, and all of them differ.
std::size_t RepeatAt(std::string_view bytes, std::string_view written, std::size_t at) {
    std::size_t end = at;
    while (end < bytes.size() && bytes[end] == bytes[at] && bytes[end] != written[end]) ++end;
    return end - at;
}

bool IsGap(std::string_view bytes, std::string_view written, std::size_t at) {
    return bytes.substr(at, SmallestGap) == written.substr(at, SmallestGap);
}

// Where the bytes that are listed from `at` on end.
std::size_t EndOfList(std::string_view bytes, std::string_view written, std::size_t at) {
    std::size_t end = at + 1;
    while (end < bytes.size() && !IsGap(bytes, written, end) && RepeatAt(bytes, written, end) < ShortestRepeat) ++end;
    return end;
}

int ValueOf(char digit) {
    if (digit >= '0' && digit <= '9') return digit - '0';
    if (digit >= 'a' && digit <= 'f') return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F') return digit - 'A' + 10;
    return -1;
}

std::optional<std::size_t> NumberOf(std::string_view digits) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

// "2061", or "00*100".
std::optional<std::string> BytesOfRun(std::string_view run, std::size_t most) {
    const std::size_t star = run.find('*');
    std::optional<std::string> bytes = FromHex(run.substr(0, star));
    if (!bytes || bytes->empty() || star == std::string_view::npos) return bytes;
    const auto count = NumberOf(run.substr(star + 1));
    if (!count || *count > most || bytes->size() != 1) return std::nullopt;
    return std::string(*count, bytes->front());
}

bool PutRun(std::string_view run, std::string& record) {
    const std::size_t colon = run.find(':');
    if (colon == std::string_view::npos) return false;
    const auto offset = NumberOf(run.substr(0, colon));
    const auto bytes = BytesOfRun(run.substr(colon + 1), record.size());
    if (!offset || !bytes || *offset > record.size() || bytes->size() > record.size() - *offset) return false;
    record.replace(*offset, bytes->size(), *bytes);
    return true;
}

}  // namespace

std::string DifferingBytes(std::string_view bytes, std::string_view written) {
    std::string runs;
    for (std::size_t at = 0; at < bytes.size();) {
        if (bytes[at] == written[at]) {
            ++at;
            continue;
        }
        const std::size_t repeat = RepeatAt(bytes, written, at);
        const std::size_t end = repeat >= ShortestRepeat ? at + repeat : EndOfList(bytes, written, at);
        runs += (runs.empty() ? "" : " ") + std::to_string(at) + ":";
        AppendHex(runs, bytes.substr(at, repeat >= ShortestRepeat ? 1 : end - at));
        if (repeat >= ShortestRepeat) runs += "*" + std::to_string(repeat);
        at = end;
    }
    return runs;
}

bool PutBytes(std::string_view runs, std::string& record) {
    while (!runs.empty()) {
        const std::size_t blank = std::min(runs.find(' '), runs.size());
        if (blank > 0 && !PutRun(runs.substr(0, blank), record)) return false;
        runs.remove_prefix(std::min(blank + 1, runs.size()));
    }
    return true;
}

void AppendHex(std::string& text, std::string_view bytes) {
    static constexpr std::string_view Digits = "0123456789abcdef";
    for (const char byte : bytes) {
        text += Digits[static_cast<unsigned char>(byte) >> 4];
        text += Digits[static_cast<unsigned char>(byte) & 15];
    }
}

std::optional<std::string> FromHex(std::string_view digits) {
    if (digits.size() % 2 != 0) return std::nullopt;
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        const int high = ValueOf(digits[at]);
        const int low = ValueOf(digits[at + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}
