// What only the real desktop can be asked: threads, attributes of files, the message loop.
#include <gtest/gtest.h>
#include <windows.h>
// After <windows.h>, which it needs.
#include <tlhelp32.h>

#include <atomic>
#include <thread>

#include "base/runtime_failure.h"
#include "contract_desktop.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/hooks.h"
#include "platform/input.h"
#include "platform/processes.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "platform/shell_folders.h"
#include "platform/window_services.h"
#include "puppet.h"
#include "win32/failure_guard.h"
#include "win32/handles.h"
#include "win32/message_loop.h"
#include "win32/system_library.h"

using contract::BoundMs;
using contract::OtherProgram;
using contract::TestFolder;
using contract::TimeOf;
using contract::Within;
using platform::ToHwnd;
using platform::WindowHandle;

namespace {

int ThreadsOfThisProcess() {
    const platform::OwnedHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    int count = 0;
    for (BOOL more = Thread32First(snapshot.Get(), &thread); more; more = Thread32Next(snapshot.Get(), &thread)) {
        if (thread.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    return count;
}

// The window answers when it is asked whether it lives, and then never finishes. The calls that are left behind are
// counted, and past the eighth none is made.
TEST(HungWindows, OnesThatHangInTheCallAreBoundedInTimeAndThreads) {
    int before = 0;
    {
        std::vector<std::unique_ptr<OtherProgram>> programs;
        before = ThreadsOfThisProcess();
        int most = 0;
        for (int round = 0; round < 10; ++round) {
            OtherProgram& program = *programs.emplace_back(std::make_unique<OtherProgram>());
            const WindowHandle window = program.Add({.className = contract::StubbornClass, .visible = false});
            ShowWindowAsync(ToHwnd(window), SW_SHOWNOACTIVATE);
            Within(contract::PatienceMs, [&] { return IsWindowVisible(ToHwnd(window)) != FALSE; });
            platform::WindowPlacement placement = platform::PlacementOf(window);
            placement.rcNormalPosition = {300, 300, 400 + round, 400};
            EXPECT_LE(TimeOf([&] { EXPECT_FALSE(platform::SetPlacement(window, placement)); }), BoundMs);
            most = std::max(most, ThreadsOfThisProcess());
        }
        EXPECT_LE(most, before + 8);
        EXPECT_GT(most, before) << "the windows were not as stubborn as the test needs them";
    }
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return ThreadsOfThisProcess() <= before; }))
        << "left-behind calls ended";
}

TEST(BringToForeground, IsCheckedByWhatIsInFrontAfterIt) {
    OtherProgram program;
    const WindowHandle front = program.Add({.caption = "front"});
    const WindowHandle shy = program.Add({.className = contract::ShyClass, .visible = false});
    ASSERT_TRUE(SetForegroundWindow(ToHwnd(shy))) << "the system says yes";
    EXPECT_LE(TimeOf([&] { EXPECT_FALSE(platform::BringToForeground(shy)); }), BoundMs);
    EXPECT_EQ(platform::ForegroundWindow(), front);
    const WindowHandle dialog = program.Add({.caption = "dialog", .owner = shy});
    EXPECT_TRUE(platform::BringToForeground(shy)) << "a dialog of the window is as good";
    EXPECT_EQ(platform::ForegroundWindow(), dialog);
    EXPECT_TRUE(platform::BringToForeground(front));
}

std::atomic<int> keysHeardMeanwhile = 0;

// While a call waits for another program, the hooks of this thread go on: else the whole desktop would stand still.
TEST(HungWindows, LetTheHooksGoOn) {
    OtherProgram program;
    const WindowHandle window = program.Add({.caption = "Hung"});
    const platform::WindowPlacement placement = platform::PlacementOf(window);
    ASSERT_TRUE(platform::InstallKeyboardHook([](const auto&) { ++keysHeardMeanwhile; }));
    program.Hang();
    std::int64_t slowestKey = 0;
    std::thread typist([&] {
        platform::Sleep(200);
        slowestKey = TimeOf([&] { platform::SendInput(contract::KeyRecord(VK_F9)); });
        platform::SendInput(contract::KeyRecord(VK_F9, platform::KeyUp));
    });
    platform::SetPlacement(window, placement);
    EXPECT_EQ(keysHeardMeanwhile, 2);
    typist.join();
    EXPECT_LT(slowestKey, 300);
    platform::RemoveKeyboardHook();
}

void PutText(const std::string& path, const std::string& text) {
    platform::File file = platform::File::Create(path);
    EXPECT_TRUE(file.Write(text.data(), static_cast<std::int64_t>(text.size())));
}

TEST(ReadOnlyFiles, AreRemovedAndNeverBusy) {
    const TestFolder folder;
    PutText(folder / "from", "new");
    PutText(folder / "to", "old");
    const auto protect = [&] { SetFileAttributesA((folder / "to").c_str(), FILE_ATTRIBUTE_READONLY); };
    protect();
    EXPECT_EQ(platform::StateOf(folder / "to"), platform::FileState::Readable);
    EXPECT_TRUE(platform::CopyFileOver(folder / "from", folder / "to"));
    protect();
    EXPECT_TRUE(platform::RemoveFile(folder / "to"));
    EXPECT_EQ(platform::StateOf(folder / "to"), platform::FileState::Missing);

    PutText(folder / "to", "old");
    protect();
    if (platform::File::Create(folder / "to").IsOpen()) GTEST_SKIP() << "this user may write to read-only files";
    EXPECT_EQ(platform::MoveFileOver(folder / "from", folder / "to"), platform::MoveResult::Failed);
}

// Opens the file again and again, as a backup or a virus scanner does, and counts what it must never find.
struct BusyReader {
    void Run(const std::string& path) {
        std::string bytes(FileSize + 1, '\0');
        for (; !over; platform::Sleep(1)) {
            platform::File file = platform::File::OpenForReading(path);
            if (file.Found() == platform::FileState::Missing) ++missing;
            if (!file.IsOpen()) continue;
            const std::int64_t count = file.Read(bytes.data(), FileSize + 1);
            if (count != FileSize || bytes.substr(0, FileSize) != std::string(FileSize, bytes[0])) ++torn;
            ++reads;
        }
    }

    static constexpr std::int64_t FileSize = 100'000;
    std::atomic<bool> over = false;
    std::atomic<int> reads = 0, missing = 0, torn = 0;
};

TEST(ReplacedFiles, AreWholeForEveryReaderAndNeverMissing) {
    const TestFolder folder;
    PutText(folder / "to", std::string(BusyReader::FileSize, 'a'));
    BusyReader reader;
    std::thread other([&] { reader.Run(folder / "to"); });
    for (int save = 0; save < 300; ++save) {
        PutText(folder / "from", std::string(BusyReader::FileSize, static_cast<char>('a' + save % 26)));
        platform::MoveResult result = platform::MoveResult::Busy;
        EXPECT_TRUE(Within(contract::PatienceMs, [&] {
            result = platform::MoveFileOver(folder / "from", folder / "to");
            return result != platform::MoveResult::Busy;
        }));
        EXPECT_EQ(result, platform::MoveResult::Done);
    }
    reader.over = true;
    other.join();
    EXPECT_GT(reader.reads, 20);
    EXPECT_EQ(reader.missing, 0);
    EXPECT_EQ(reader.torn, 0);
}

TEST(HiddenFiles, CanBeWrittenAnew) {
    const TestFolder folder;
    PutText(folder / "hidden", "a long first text");
    SetFileAttributesA((folder / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    PutText(folder / "hidden", "short");
    EXPECT_EQ(platform::File::OpenForReading(folder / "hidden").Length(), 5);
}

TEST(Registry, WhatIsNotTextHasNoValue) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, "Software\\Tessarine contract", &key), ERROR_SUCCESS);
    const DWORD number = 0x41414141;
    RegSetValueExA(key, "number", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
    RegSetValueExA(key, "unended", 0, REG_SZ, reinterpret_cast<const BYTE*>("abc"), 3);
    RegCloseKey(key);
    EXPECT_FALSE(platform::ReadRegistry("Software\\Tessarine contract", "number").has_value());
    EXPECT_EQ(platform::ReadRegistry("Software\\Tessarine contract", "unended"), "abc");
}

TEST(Pump, LeavesTheEndToTheMainLoop) {
    PostQuitMessage(41);
    platform::Pump();
    platform::Pump();
    EXPECT_EQ(platform::RunMessageLoop(), 41);
}

bool AMessageOfTheThreadWaits() {
    MSG message;
    return PeekMessageA(&message, reinterpret_cast<HWND>(-1), WM_APP, WM_APP, PM_NOREMOVE) != 0;
}

// A message without a window would be lost to a pump that takes it away.
TEST(Pump, InsideAHookCallLeavesMessagesOfTheThread) {
    contract::AddOwn({.caption = "front"});
    static bool waited = false;
    ASSERT_TRUE(platform::InstallKeyboardHook([](const auto&) {
        if (waited) return;
        PostThreadMessageA(GetCurrentThreadId(), WM_APP, 0, 0);
        platform::Pump();
        waited = AMessageOfTheThreadWaits();
    }));
    contract::SendTap(VK_F9);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return waited; }));
    platform::RemoveKeyboardHook();
    platform::Pump();
    EXPECT_FALSE(AMessageOfTheThreadWaits());
}

// A failure in a hook is shown from the pump: a box inside the hook would hold up the whole desktop.
TEST(Failures, InAHookWaitForThePump) {
    contract::AddOwn({.caption = "front"});
    const std::string shown = contract::BoxDuring([&] {
        ASSERT_TRUE(platform::InstallKeyboardHook(
            [](const auto&) { throw RuntimeFailure(FailureKind::Range, "Index 9 does not exist."); }));
        EXPECT_LT(TimeOf([] { platform::SendInput(contract::KeyRecord(VK_F9)); }), 300);
        platform::RemoveKeyboardHook();
        Within(500, [] { return false; });
    });
    EXPECT_EQ(shown, "Tessarine|Index 9 does not exist.");
    platform::SendInput(contract::KeyRecord(VK_F9, platform::KeyUp));
}

TEST(Failures, AreReportedToTheCaller) {
    bool result = true;
    const std::string shown =
        contract::BoxDuring([&] { result = platform::GuardedCall([] { throw std::bad_alloc(); }); });
    EXPECT_FALSE(result);
    EXPECT_NE(shown, "");
    EXPECT_TRUE(platform::GuardedCall([] {}));
}

// Started with the name of a file, the puppet's executable has its own way of showing that it ran: a window.
TEST(StartProgram, FindsAProgramWhosePathHasBlanks) {
    const TestFolder folder;
    const std::string copy = folder / "a program.exe";
    ASSERT_TRUE(platform::CopyFileOver(contract::OwnPath(), copy));
    const std::string parent = std::to_string(GetCurrentProcessId());
    int number = 0;
    for (const std::string& line : {copy, "\"" + copy + "\""}) {
        const std::string name = "started " + std::to_string(++number);
        EXPECT_TRUE(platform::StartProgram(line + " " + contract::PuppetSwitch + " \"" + name + "\" " + parent, 1));
        HWND control = nullptr;
        EXPECT_TRUE(Within(contract::PatienceMs, [&] {
            control = FindWindowExA(HWND_MESSAGE, nullptr, contract::PuppetClass, name.c_str());
            return control != nullptr;
        })) << line;
        DWORD process = 0;
        GetWindowThreadProcessId(control, &process);
        const platform::OwnedHandle handle(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process));
        TerminateProcess(handle.Get(), 0);
        WaitForSingleObject(handle.Get(), contract::PatienceMs);
    }
    EXPECT_FALSE(platform::StartProgram(folder / "no such program.exe -x", 1));
    EXPECT_FALSE(platform::StartProgram("", 1));
    Within(contract::PatienceMs, [&] { return platform::RemoveFile(copy); });
}

TEST(ShellFolders, AreFoldersWithoutATrailingBackslash) {
    for (const std::string& folder : {platform::ExecutableFolder(), platform::DesktopDirectory()}) {
        EXPECT_TRUE(platform::FolderExists(folder)) << folder;
        EXPECT_FALSE(folder.ends_with('\\')) << folder;
    }
}

TEST(SystemLibraries, ComeFromTheSystemFolderAlone) {
    EXPECT_NE(platform::FindSystemFunction("winmm.dll", "timeBeginPeriod"), nullptr);
    EXPECT_EQ(platform::FindSystemFunction("winmm.dll", "noSuchFunction"), nullptr);
    const std::string beside = platform::ExecutableFolder() + "\\contract_planted.dll";
    ASSERT_TRUE(platform::CopyFileOver(contract::OwnPath(), beside));
    EXPECT_EQ(platform::FindSystemFunction("contract_planted.dll", "main"), nullptr);
    const HMODULE found = GetModuleHandleA("contract_planted.dll");
    EXPECT_EQ(found, nullptr);
    platform::RemoveFile(beside);
}

}  // namespace
