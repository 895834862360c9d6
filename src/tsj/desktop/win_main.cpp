// The entry of tsj.exe.
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/runtime_failure.h"
#include "guard/guard_process.h"
#include "platform/shell_folders.h"
#include "platform/text.h"
#include "replay/run_stop.h"
#include "tsj/tsj.h"
#include "win32/code_page.h"
#include "win32/system_library.h"

namespace {

// What is typed and what is told is UTF-8; the console is put back as it was.
class Utf8Console {
public:
    Utf8Console() {
        SetConsoleOutputCP(CP_UTF8);
        for (std::FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;
    ~Utf8Console() { SetConsoleOutputCP(before); }

private:
    UINT before = GetConsoleOutputCP();
};

std::string Utf8Of(const wchar_t* wide) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size > 0 ? size - 1 : 0), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    return text;
}

// Strokes either way. A name that the code page lacks goes by its short form, when there is one. It never goes by a
// likeness, which can be another file.
std::string PathOf(const std::string& typed) {
    std::wstring path = platform::Widen(typed, CP_UTF8);
    std::ranges::replace(path, L'/', L'\\');
    if (const auto narrow = platform::PathInCodePage(path)) return *narrow;
    throw RuntimeFailure(FailureKind::File, "The name '" + platform::FromUtf8(typed) +
                                                "' has characters that programs of this Windows cannot name files by. "
                                                "Give the file another name.");
}

bool IsTerminal(DWORD handle) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(handle), &mode) != 0;
}

// Terminals that understand the codes say so; older consoles do without colours.
bool TakesColours() {
    const HANDLE out = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(out, &mode) != 0 && SetConsoleMode(out, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0 &&
           std::getenv("NO_COLOR") == nullptr;
}

void WriteTo(std::FILE* stream, std::string_view bytes) {
    std::fwrite(bytes.data(), 1, bytes.size(), stream);
    std::fflush(stream);
}

std::string ReadAll() {
    std::string bytes;
    char block[64 * 1024];
    for (std::size_t size = 0; (size = std::fread(block, 1, sizeof block, stdin)) > 0;) bytes.append(block, size);
    return bytes;
}

// Ctrl+C and Ctrl+Break, and the console that is closed: the run ends as with ESC, with every key released.
BOOL WINAPI Interrupted(DWORD event) noexcept {
    InterruptRun();
    constexpr DWORD LongEnough = 4000;  // ms; Windows ends a process of a closed console after five seconds
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) Sleep(LongEnough);
    return TRUE;
}

Streams ConsoleStreams() {
    Streams streams;
    streams.out = [](std::string_view bytes) { WriteTo(stdout, bytes); };
    streams.err = [](std::string_view text) { WriteTo(stderr, text); };
    streams.readAll = ReadAll;
    streams.pathOf = PathOf;
    streams.pathAsTyped = [](const std::string& text) { return platform::ToUtf8(text); };
    streams.besideProgram = [](const std::string& name) {
        return platform::ToUtf8(platform::ExecutableFolder() + "\\" + name);
    };
    streams.onWindows = true;
    streams.colours = IsTerminal(STD_OUTPUT_HANDLE) && TakesColours();
    streams.progress = IsTerminal(STD_ERROR_HANDLE);
    return streams;
}

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    platform::HardenProcess();
    if (const auto guard = GuardCommandOfThisProcess()) return RunGuard(*guard);
    const Utf8Console console;
    SetConsoleCtrlHandler(Interrupted, TRUE);
    std::vector<std::string> words;
    for (int i = 1; i < argumentCount; ++i) words.push_back(Utf8Of(arguments[i]));
    Streams streams = ConsoleStreams();
    return RunTsj(words, streams, {textCommands, desktopCommands});
}
