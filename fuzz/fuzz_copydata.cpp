// Any WM_COPYDATA at all: what comes out is the claimed bytes and no others, or nothing, or a run-time failure. The
// payload lies at the end of its memory, so that reading past the claimed size would be seen.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "base/runtime_failure.h"
#include "shell/copy_data.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckPayload(std::uintptr_t dwData, std::uint32_t cbData, const char* payload) {
    try {
        const std::optional<std::string> command = CommandFromCopyData(dwData, cbData, payload);
        if (!command) {
            Require(dwData != CommandLineData || payload == nullptr);
            return;
        }
        Require(dwData == CommandLineData && command->size() <= CommandLineLimit);
        Require(command->size() == (cbData == 0 ? 0 : cbData - 1));
        Require(command->empty() || std::memcmp(command->data(), payload, command->size()) == 0);
    } catch (const RuntimeFailure&) {
        Require(cbData > CommandLineLimit + 1);
    }
}

void CheckRoundTrip(const std::string& line) {
    if (line.size() > CommandLineLimit) return;
    const std::string bytes = CopyDataOfCommand(line);
    const auto back = CommandFromCopyData(CommandLineData, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    Require(back == line);
}

}  // namespace

// One byte for dwData, one for what the size claims, and the payload.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::size_t length = size - 2;
    const std::unique_ptr<char[]> payload(length == 0 ? nullptr : new char[length]);
    if (payload) std::memcpy(payload.get(), data + 2, length);

    const std::uintptr_t dwData = data[0] % 5;
    const bool lies = data[1] >= 250;  // by more than any command line may have, which must be found before a read
    const auto claimed = static_cast<std::uint32_t>(lies ? 257 + data[1] * 16'000'000ULL : length);
    CheckPayload(dwData, claimed, payload.get());
    CheckRoundTrip(std::string(payload.get() == nullptr ? "" : payload.get(), length));
    return 0;
}
