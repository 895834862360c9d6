// Saves under pressure, for real: save_stress.exe FOLDER [SEED]
//
// Four files in FOLDER are saved over and over while a busy reader of each wants them and other programs lock them for
// up to a second. Prints what it counted, one "name number" a line; test_saves.py judges.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstring>
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
#include "win32/handles.h"

namespace {

using platform::OwnedHandle;

constexpr int Lanes = 4;
constexpr int SavesPerLane = 100;
constexpr int LocksPerLane = 25;
constexpr int LongestLockMs = 1000;
constexpr std::int64_t NoticeableMs = 100;

// Over all files.
struct Counts {
    std::atomic<int> saves, save_failures, saves_that_waited, locks, reads, torn, missing, shrunk;
};
Counts counts;

class Dice {
public:
    explicit Dice(unsigned seed) : engine(seed) {}
    int UpTo(int highest) { return std::uniform_int_distribution(0, highest)(engine); }
    std::uint32_t Word() { return engine(); }

private:
    std::mt19937 engine;
};

// Files that show whether they are whole: a size and a seed stand in front, and every byte behind follows from the
// seed.
struct Front {
    std::uint32_t size;
    std::uint32_t seed;
};

std::string WholeFile(std::uint32_t seed, std::size_t size) {
    std::vector<std::uint32_t> words(size / sizeof(std::uint32_t) + 1);
    std::generate(words.begin(), words.end(), std::mt19937(seed));
    const Front front{static_cast<std::uint32_t>(size), seed};
    std::memcpy(words.data(), &front, sizeof front);
    return {reinterpret_cast<const char*>(words.data()), size};
}

// False for a file that mixes two, or lacks a part. The tail of a longer predecessor may follow.
bool IsWhole(const std::string& bytes) {
    Front front{};
    if (bytes.size() < sizeof front) return false;
    std::memcpy(&front, bytes.data(), sizeof front);
    if (front.size < sizeof front || front.size > bytes.size()) return false;
    return bytes.substr(0, front.size) == WholeFile(front.seed, front.size);
}

std::string RandomFile(Dice& dice) {
    return WholeFile(dice.Word(), std::size_t{1000} + static_cast<std::size_t>(dice.UpTo(200'000)));
}

void Save(const std::string& path, const std::string& bytes) {
    SaveFile file(path);
    file.Write(bytes.data(), bytes.size());
    file.Commit();
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

// Empty, with LastError set, when the file is held or missing.
std::string BytesOf(const std::string& path) {
    const OwnedHandle file(OpenAsOthersDo(path, FILE_SHARE_READ));
    if (file.Get() == nullptr) return "";
    std::string bytes(GetFileSize(file.Get(), nullptr), '\0');
    DWORD count = 0;
    ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    bytes.resize(count);
    return bytes;
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
        const std::int64_t start = platform::TickCount();
        if (!Saved(path, RandomFile(dice))) ++counts.save_failures;
        if (platform::TickCount() - start >= NoticeableMs) ++counts.saves_that_waited;
        ++counts.saves;
        ++saves;
    }

    void ReadBusily() {
        std::size_t longest = 0;
        while (!saverDone) {
            SetLastError(ERROR_SUCCESS);
            const std::string bytes = BytesOf(path);
            if (bytes.empty()) {
                const DWORD error = GetLastError();
                if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) ++counts.missing;
                Sleep(1);
                continue;
            }
            ++counts.reads;
            if (!IsWhole(bytes)) ++counts.torn;
            if (bytes.size() < longest) ++counts.shrunk;  // old tails stay
            longest = std::max(longest, bytes.size());
        }
    }

    void LockNowAndThen() {
        Dice dice(seed + 1000);
        for (int i = 0; i < LocksPerLane; ++i) {
            // Two locks with no save between them would be one of up to two seconds.
            const int before = saves;
            while (saves == before) Sleep(1);
            platform::Sleep(dice.UpTo(40));
            HANDLE opened = nullptr;
            while ((opened = OpenAsOthersDo(path, 0)) == nullptr) YieldProcessor();
            const OwnedHandle lock(opened);
            platform::Sleep(dice.UpTo(LongestLockMs));
            ++counts.locks;
        }
        lockerDone = true;
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

void PrintCounts() {
    const std::pair<const char*, int> lines[] = {{"saves", counts.saves},
                                                 {"save_failures", counts.save_failures},
                                                 {"saves_that_waited", counts.saves_that_waited},
                                                 {"locks", counts.locks},
                                                 {"reads", counts.reads},
                                                 {"torn", counts.torn},
                                                 {"missing", counts.missing},
                                                 {"shrunk", counts.shrunk}};
    for (const auto& [name, number] : lines) std::cout << name << " " << number << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc < 2) return 2;
        const unsigned seed = argc > 2 ? static_cast<unsigned>(std::stoul(argv[2])) : std::random_device()();
        std::cout << "seed " << seed << std::endl;
        ForEachLane(argv[1], [&](const std::string& path, unsigned lane) { Lane(path, seed + lane).Run(); });
        PrintCounts();
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << std::endl;
        return 1;
    }
}
