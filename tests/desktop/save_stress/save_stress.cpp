// Saves under pressure, for real: save_stress.exe FOLDER [SEED]
//
// Four files in FOLDER are saved over and over while a busy reader of each wants them, other programs lock them for up
// to a second, one locks them for good, and the saving process is ended at random moments. Prints what it counted, one
// "name number" a line; test_saves.py judges.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "base/runtime_failure.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "storage/save_file.h"
#include "whole_file.h"
#include "win32/handles.h"

namespace {

constexpr int Lanes = 4;
constexpr int SavesPerLane = 100;
constexpr int LocksPerLane = 25;
constexpr int KillsPerLane = 25;
constexpr int LongestLockMs = 1000;
constexpr int LongestLifeMs = 30;
constexpr std::int64_t NoticeableMs = 100;

// Everything that is counted, over all files.
struct Counts {
    std::atomic<int> saves, save_failures, saves_that_waited, slowest_save, locks, longest_lock, reads, refused_reads,
        torn, missing, shrunk, kills, kills_within_a_save, failures_after_a_kill;
};
Counts counts;

void RaiseTo(std::atomic<int>& maximum, int value) {
    for (int old = maximum; old < value && !maximum.compare_exchange_weak(old, value);) {
    }
}

class Dice {
public:
    explicit Dice(unsigned seed) : engine(seed) {}
    int UpTo(int highest) { return std::uniform_int_distribution(0, highest)(engine); }
    std::uint32_t Word() { return engine(); }

private:
    std::mt19937 engine;
};

void Save(const std::string& path, const std::string& bytes) {
    SaveFile file(path);
    file.Write(bytes.data(), bytes.size());
    file.Commit();
}

std::string RandomFile(Dice& dice) {
    return WholeFile(dice.Word(), std::size_t{1000} + static_cast<std::size_t>(dice.UpTo(200'000)));
}

bool Saved(const std::string& path, const std::string& bytes) {
    try {
        Save(path, bytes);
        return true;
    } catch (const RuntimeFailure& failure) {
        std::cerr << failure.what() << std::endl;
        return false;
    }
}

// As other programs open files: with `share`, and never letting anybody replace them meanwhile. Null when refused.
HANDLE OpenAsOthersDo(const std::string& path, DWORD share) {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file == INVALID_HANDLE_VALUE ? nullptr : file;
}

std::string ReadWhole(HANDLE file) {
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD count = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    bytes.resize(count);
    return bytes;
}

std::string BytesOf(const std::string& path) {
    const platform::OwnedHandle file(OpenAsOthersDo(path, FILE_SHARE_READ));
    return file.Get() != nullptr ? ReadWhole(file.Get()) : std::string();
}

// One file with its saver, its reader and the program that locks it.
class Lane {
public:
    Lane(const std::string& file, unsigned laneSeed) : path(file), seed(laneSeed) {}

    void Run() {
        Dice dice(seed);
        Save(path, RandomFile(dice));
        std::thread reader([this] { ReadBusily(); });
        std::thread locker([this] { LockNowAndThen(); });
        while (saves < SavesPerLane || !lockerDone) SaveOnce(dice);
        saverDone = true;
        locker.join();
        reader.join();
    }

private:
    void SaveOnce(Dice& dice) {
        const std::string bytes = RandomFile(dice);
        const std::int64_t start = platform::TickCount();
        if (!Saved(path, bytes)) ++counts.save_failures;
        const std::int64_t duration = platform::TickCount() - start;
        if (duration >= NoticeableMs) ++counts.saves_that_waited;
        RaiseTo(counts.slowest_save, static_cast<int>(duration));
        ++counts.saves;
        ++saves;
    }

    void ReadBusily() {
        std::size_t longest = 0;
        while (!saverDone) ReadOnce(longest);
    }

    void ReadOnce(std::size_t& longest) {
        std::string bytes;
        {
            const platform::OwnedHandle file(OpenAsOthersDo(path, FILE_SHARE_READ));
            if (file.Get() == nullptr) return CountRefusal(GetLastError());
            bytes = ReadWhole(file.Get());
        }
        ++counts.reads;
        if (!IsWhole(bytes)) ++counts.torn;
        if (bytes.size() < longest) ++counts.shrunk;  // old tails stay
        longest = std::max(longest, bytes.size());
    }

    static void CountRefusal(DWORD error) {
        const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        ++(held ? counts.refused_reads : counts.missing);
        Sleep(1);
    }

    void LockNowAndThen() {
        Dice dice(seed + 1000);
        for (int i = 0; i < LocksPerLane; ++i) {
            // Two locks with no save between them would be one of up to two seconds.
            const int before = saves;
            while (saves == before) Sleep(1);
            platform::Sleep(dice.UpTo(40));
            LockFor(dice.UpTo(LongestLockMs));
        }
        lockerDone = true;
    }

    void LockFor(int milliseconds) {
        HANDLE opened = nullptr;
        while ((opened = OpenAsOthersDo(path, 0)) == nullptr) YieldProcessor();
        const platform::OwnedHandle lock(opened);
        platform::Sleep(milliseconds);
        ++counts.locks;
        RaiseTo(counts.longest_lock, milliseconds);
    }

    std::string path;
    unsigned seed;
    std::atomic<int> saves = 0;
    std::atomic<bool> lockerDone = false;
    std::atomic<bool> saverDone = false;
};

void ForEachLane(const std::string& folder, const std::function<void(const std::string&, unsigned)>& run) {
    std::vector<std::thread> threads;
    for (unsigned lane = 0; lane < Lanes; ++lane) {
        threads.emplace_back(run, folder + "\\" + std::to_string(lane) + ".tsj", lane);
    }
    for (std::thread& thread : threads) thread.join();
}

// --- a lock that stays ---

int TemporariesIn(const std::string& folder) {
    return static_cast<int>(platform::FilesIn(folder, ".tmp")->size());
}

// Milliseconds until the failure was reported; -1 when none was.
std::int64_t MsUntilReported(const std::string& path, DWORD share, Dice& dice) {
    const platform::OwnedHandle lock(OpenAsOthersDo(path, share));
    const std::string bytes = RandomFile(dice);
    const std::int64_t start = platform::TickCount();
    return Saved(path, bytes) ? -1 : platform::TickCount() - start;
}

void TryLastingLock(const std::string& folder, const std::string& name, DWORD share, unsigned seed) {
    Dice dice(seed);
    const std::string path = folder + "\\" + name + ".tsj";
    Save(path, RandomFile(dice));
    const std::string old = BytesOf(path);
    std::cout << name << "_reported_after " << MsUntilReported(path, share, dice) << "\n";
    std::cout << name << "_old_file_untouched " << (!old.empty() && BytesOf(path) == old) << "\n";
    std::cout << name << "_temporaries " << TemporariesIn(folder) << "\n";
    std::cout << name << "_next_save_works " << Saved(path, RandomFile(dice)) << std::endl;
}

// --- a process that is ended ---

constexpr const char* SaverSwitch = "-saver";

std::string OwnPath() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    return path;
}

// What the process does that will be ended. The event tells that it has come this far.
int SaveForEver(const std::string& path, const char* event, unsigned seed) {
    const platform::OwnedHandle begun(OpenEventA(EVENT_MODIFY_STATE, FALSE, event));
    SetEvent(begun.Get());
    Dice dice(seed);
    for (;;) Save(path, RandomFile(dice));
}

platform::OwnedHandle StartSaver(const std::string& path, const std::string& event, unsigned seed) {
    std::string command =
        "\"" + OwnPath() + "\" " + SaverSwitch + " \"" + path + "\" " + event + " " + std::to_string(seed);
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process);
    CloseHandle(process.hThread);
    return platform::OwnedHandle(process.hProcess);
}

void KillSaver(const std::string& path, const std::string& eventName, Dice& dice) {
    const platform::OwnedHandle begun(CreateEventA(nullptr, TRUE, FALSE, eventName.c_str()));
    const platform::OwnedHandle saver = StartSaver(path, eventName, dice.Word());
    WaitForSingleObject(begun.Get(), INFINITE);
    platform::SleepUntil(platform::Microseconds() + dice.UpTo(LongestLifeMs * 1000));
    const bool wasAlive = WaitForSingleObject(saver.Get(), 0) == WAIT_TIMEOUT;
    TerminateProcess(saver.Get(), 1);
    WaitForSingleObject(saver.Get(), INFINITE);
    if (wasAlive) ++counts.kills;
}

// Each file has a folder of its own here, so that what a kill leaves behind is found.
void CountLeftovers(const std::string& folder) {
    const auto leftovers = platform::FilesIn(folder, ".tmp");
    if (!leftovers->empty()) ++counts.kills_within_a_save;
    for (const std::string& name : *leftovers) platform::RemoveFile(folder + "\\" + name);
}

void SaveAfterKill(const std::string& path, Dice& dice) {
    const std::string next = RandomFile(dice);
    const bool works = Saved(path, next) && BytesOf(path).starts_with(next);
    if (!works) ++counts.failures_after_a_kill;
}

void KillAgainAndAgain(const std::string& folder, unsigned seed) {
    Dice dice(seed);
    platform::MakeFolder(folder);
    const std::string path = folder + "\\killed.tsj";
    Save(path, RandomFile(dice));
    for (int i = 0; i < KillsPerLane; ++i) {
        KillSaver(path, "save_stress_" + std::to_string(seed) + "_" + std::to_string(i), dice);
        if (!IsWhole(BytesOf(path))) ++counts.torn;
        CountLeftovers(folder);
        SaveAfterKill(path, dice);
    }
}

void PrintCounts() {
    std::cout << "saves " << counts.saves << "\nsave_failures " << counts.save_failures << "\nsaves_that_waited "
              << counts.saves_that_waited << "\nslowest_save " << counts.slowest_save << "\nlocks " << counts.locks
              << "\nlongest_lock " << counts.longest_lock << "\nreads " << counts.reads << "\nrefused_reads "
              << counts.refused_reads << "\ntorn " << counts.torn << "\nmissing " << counts.missing << "\nshrunk "
              << counts.shrunk << "\nkills " << counts.kills << "\nkills_within_a_save " << counts.kills_within_a_save
              << "\nfailures_after_a_kill " << counts.failures_after_a_kill << std::endl;
}

void Stress(const std::string& folder, unsigned seed) {
    std::cout << "seed " << seed << std::endl;
    ForEachLane(folder, [&](const std::string& path, unsigned lane) { Lane(path, seed + lane).Run(); });
    TryLastingLock(folder, "exclusive_lock", 0, seed);
    TryLastingLock(folder, "lasting_reader", FILE_SHARE_READ, seed);
    ForEachLane(folder,
                [&](const std::string& path, unsigned lane) { KillAgainAndAgain(path + "_kills", seed + lane); });
    PrintCounts();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 5 && argv[1] == std::string(SaverSwitch)) {
            return SaveForEver(argv[2], argv[3], static_cast<unsigned>(std::stoul(argv[4])));
        }
        if (argc < 2) return 2;
        Stress(argv[1], argc > 2 ? static_cast<unsigned>(std::stoul(argv[2])) : std::random_device()());
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << std::endl;
        return 1;
    }
}
