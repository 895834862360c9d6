// What only the real desktop can be asked: threads, attributes of files, the message loop.
#include <gtest/gtest.h>
#include <windows.h>
// After <windows.h>, which it needs.
#include <tlhelp32.h>

#include <atomic>
#include <future>
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

TEST(HungWindows, CostNoThreads) {
    OtherProgram program;
    const WindowHandle window = program.Add({.caption = "Hung"});
    const platform::WindowPlacement placement = platform::PlacementOf(window);
    program.Hang();
    const int before = ThreadsOfThisProcess();
    for (int round = 0; round < 4; ++round) EXPECT_FALSE(platform::SetPlacement(window, placement));
    EXPECT_LE(ThreadsOfThisProcess(), before);
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

std::atomic<int> keysHeard = 0;

// While a call waits for another program, the hooks of this thread go on: else the whole desktop would stand still.
TEST(HungWindows, LetTheHooksGoOn) {
    OtherProgram program;
    const WindowHandle window = program.Add({.caption = "Hung"});
    const platform::WindowPlacement placement = platform::PlacementOf(window);
    ASSERT_TRUE(platform::InstallKeyboardHook([](const auto&) { ++keysHeard; }));
    program.Hang();
    std::int64_t slowestKey = 0;
    std::thread typist([&] {
        platform::Sleep(200);
        platform::InputRecord key;
        key.dwType() = platform::InputKeyboard;
        key.KeyCode() = VK_F9;
        slowestKey = TimeOf([&] { platform::SendInput(key); });
        key.KeyState() = platform::KeyUp;
        platform::SendInput(key);
    });
    platform::SetPlacement(window, placement);
    EXPECT_EQ(keysHeard, 2);
    typist.join();
    EXPECT_LT(slowestKey, 300);
    platform::RemoveKeyboardHook();
}

// A window of this process on a second thread, which wants an answer from the first before it gives one.
TEST(OwnWindows, OfAnotherThreadDoNotDeadlock) {
    const WindowHandle own = contract::AddOwn({.caption = "own"});
    std::promise<HWND> made;
    std::atomic<DWORD> threadId = 0;
    std::atomic<bool> ended = false;
    std::thread second([&] {
        threadId = GetCurrentThreadId();
        contract::OrderData order;
        order.rect = {100, 100, 300, 300};
        strcpy(order.className, "Contract");
        const HWND window = contract::MakeWindow(order);
        SetPropA(window, "asks", ToHwnd(own));
        SetWindowLongPtrA(
            window, GWLP_WNDPROC,
            reinterpret_cast<LONG_PTR>(+[](HWND target, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                if (message == WM_WINDOWPOSCHANGING || message == WM_ACTIVATE) {
                    SendMessageA(static_cast<HWND>(GetPropA(target, "asks")), WM_GETTEXTLENGTH, 0, 0);
                }
                return DefWindowProcA(target, message, wParam, lParam);
            }));
        made.set_value(window);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
        ended = true;
    });
    auto future = made.get_future();
    ASSERT_TRUE(Within(contract::PatienceMs,
                       [&] { return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }));
    const WindowHandle window = platform::FromHwnd(future.get());
    platform::WindowPlacement placement = platform::PlacementOf(window);
    placement.rcNormalPosition = {150, 150, 350, 350};
    EXPECT_LE(TimeOf([&] { EXPECT_TRUE(platform::SetPlacement(window, placement)); }), BoundMs);
    EXPECT_TRUE(platform::BringToForeground(own));
    EXPECT_LE(TimeOf([&] { EXPECT_TRUE(platform::BringToForeground(window)); }), BoundMs);
    PostThreadMessageA(threadId, WM_QUIT, 0, 0);
    EXPECT_TRUE(Within(contract::PatienceMs, [&] { return ended.load(); }));  // it may still be asking us something
    second.join();
    contract::RemoveOwn(own);
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
    platform::InputRecord key;
    key.dwType() = platform::InputKeyboard;
    key.KeyCode() = VK_F9;
    platform::SendInput(key);
    key.KeyState() = platform::KeyUp;
    platform::SendInput(key);
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return waited; }));
    platform::RemoveKeyboardHook();
    platform::Pump();
    EXPECT_FALSE(AMessageOfTheThreadWaits());
}

// --- the guard ---

std::vector<int> StillDown() {
    std::vector<int> down;
    for (const int key : {contract::HeldKeys[0], contract::HeldKeys[1], contract::HeldButton}) {
        if (platform::AsyncKeyState(key) < 0) down.push_back(key);
    }
    return down;
}

TEST(Guard, ReleasesWhatAKilledProgramHoldsAndEndsWithIt) {
    contract::AddOwn({.caption = "front"});
    OtherProgram program;
    const std::uint32_t guard = program.HoldDown();
    ASSERT_NE(guard, 0u);
    const platform::OwnedHandle process(OpenProcess(SYNCHRONIZE, FALSE, guard));
    ASSERT_TRUE(Within(contract::PatienceMs, [] { return StillDown().size() == 3; }));
    Within(2000, [] { return false; });
    EXPECT_EQ(StillDown().size(), 3u) << "nothing is released while the program lives";
    EXPECT_EQ(WaitForSingleObject(process.Get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    program.Kill();
    EXPECT_TRUE(Within(1000, [] { return StillDown().empty(); }));
    EXPECT_EQ(WaitForSingleObject(process.Get(), contract::PatienceMs), WAIT_OBJECT_0);
}

TEST(Guard, IsReplacedWhenItHasDied) {
    contract::AddOwn({.caption = "front"});
    OtherProgram program;
    const std::uint32_t first = program.HoldDown();
    ASSERT_NE(first, 0u);
    EXPECT_EQ(program.HoldDown(), first) << "one is enough";
    const platform::OwnedHandle process(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, first));
    TerminateProcess(process.Get(), 1);
    WaitForSingleObject(process.Get(), contract::PatienceMs);
    const std::uint32_t second = program.HoldDown();
    EXPECT_NE(second, 0u);
    EXPECT_NE(second, first);
    program.Kill();
    EXPECT_TRUE(Within(contract::PatienceMs, [] { return StillDown().empty(); }))
        << "it knows what was pressed before its time";
}

// A failure in a hook is shown from the pump: a box inside the hook would hold up the whole desktop.
TEST(Failures, InAHookWaitForThePump) {
    contract::AddOwn({.caption = "front"});
    platform::InputRecord key;
    key.dwType() = platform::InputKeyboard;
    key.KeyCode() = VK_F9;
    const std::string shown = contract::BoxDuring([&] {
        ASSERT_TRUE(platform::InstallKeyboardHook(
            [](const auto&) { throw RuntimeFailure(FailureKind::Range, "Index 9 does not exist."); }));
        EXPECT_LT(TimeOf([&] { platform::SendInput(key); }), 300);
        platform::RemoveKeyboardHook();
        Within(500, [] { return false; });
    });
    EXPECT_EQ(shown, "Tessarine|Index 9 does not exist.");
    key.KeyState() = platform::KeyUp;
    platform::SendInput(key);
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
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    const std::string copy = folder / "a program.exe";
    ASSERT_TRUE(platform::CopyFileOver(own, copy));
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
    char own[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, own, sizeof own);
    const std::string beside = platform::ExecutableFolder() + "\\contract_planted.dll";
    ASSERT_TRUE(platform::CopyFileOver(own, beside));
    EXPECT_EQ(platform::FindSystemFunction("contract_planted.dll", "main"), nullptr);
    const HMODULE found = GetModuleHandleA("contract_planted.dll");
    EXPECT_EQ(found, nullptr);
    platform::RemoveFile(beside);
}

}  // namespace
