#include "platform/sound.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstring>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

#include "win32/com.h"
#include "win32/handles.h"
#include "win32/system_library.h"
// After <windows.h>, which they need.
#include <mmsystem.h>
// After <mmsystem.h>, which it needs.
#include <dsound.h>

namespace platform {
namespace {

// DirectSound takes a while to come up, waits for a service of the system that may hang, and keeps a thread of its own
// at work as long as it is there. So another thread than the program's brings it up with the first sound, and lets it
// go, and ends, when there has been none for a while.
constexpr DWORD SilenceMs = 10'000;
constexpr std::int64_t NoSound = -1;

using Sounds = std::vector<Sound>;

// The thread may be at work when the process ends: what it uses is there for good.
struct Player {
    HWND mainWindow = nullptr;
    const Sounds* sounds = nullptr;
    HANDLE wake = nullptr;
    std::atomic<std::int64_t> wanted = NoSound;
    std::atomic<bool> atWork = false;  // the thread, or one that is being started
} player;

WAVEFORMATEX FormatOf(const Sound& sound) {
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(sound.channels);
    format.nSamplesPerSec = static_cast<DWORD>(sound.samplesPerSecond);
    format.wBitsPerSample = static_cast<WORD>(sound.bitsPerSample);
    format.nBlockAlign = static_cast<WORD>(sound.channels * sound.bitsPerSample / 8);
    format.nAvgBytesPerSec = format.nSamplesPerSec * format.nBlockAlign;
    return format;
}

// The system's sound, with a buffer for each of the program's, or nothing at all.
class Device {
public:
    Device(HWND mainWindow, const Sounds& sounds) {
        const auto create = SystemFunction<decltype(&DirectSoundCreate8)>("dsound.dll", "DirectSoundCreate8");
        if (create == nullptr || FAILED(create(nullptr, system.Place(), nullptr)) || !system) return;
        if (FAILED(system->SetCooperativeLevel(mainWindow, DSSCL_NORMAL))) return;
        const bool whole = std::all_of(sounds.begin(), sounds.end(), [this](const Sound& sound) { return Add(sound); });
        if (!whole) buffers.clear();
    }

    // A buffer that fails now was lost with its device. The next sound after a silence finds another one.
    void Start(std::int64_t place) {
        if (place < 0 || place >= static_cast<std::int64_t>(buffers.size())) return;
        const Owned<IDirectSoundBuffer>& buffer = buffers[static_cast<std::size_t>(place)];
        if (FAILED(buffer->SetCurrentPosition(0)) || FAILED(buffer->Play(0, 0, 0))) buffers.clear();
    }

private:
    // To be heard when another program is in front, as it is during a run.
    bool Add(const Sound& sound) {
        WAVEFORMATEX format = FormatOf(sound);
        DSBUFFERDESC wanted{};
        wanted.dwSize = sizeof wanted;
        wanted.dwFlags = DSBCAPS_CTRLFREQUENCY | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME | DSBCAPS_GLOBALFOCUS;
        wanted.dwBufferBytes = static_cast<DWORD>(sound.samples.size());
        wanted.lpwfxFormat = &format;
        Owned<IDirectSoundBuffer> buffer;
        if (FAILED(system->CreateSoundBuffer(&wanted, buffer.Place(), nullptr)) || !buffer) return false;
        if (!Fill(buffer, sound.samples)) return false;
        buffers.push_back(std::move(buffer));
        return true;
    }

    // Straight from memory: a file on the way would only be one more thing that can fail, or be left behind.
    static bool Fill(const Owned<IDirectSoundBuffer>& buffer, const std::string& samples) {
        void* place = nullptr;
        DWORD size = 0;
        if (FAILED(buffer->Lock(0, 0, &place, &size, nullptr, nullptr, DSBLOCK_ENTIREBUFFER))) return false;
        const bool fits = size == samples.size();
        if (fits) std::memcpy(place, samples.data(), size);
        return SUCCEEDED(buffer->Unlock(place, size, nullptr, 0)) && fits;
    }

    Owned<IDirectSound8> system;
    std::vector<Owned<IDirectSoundBuffer>> buffers;  // behind the system, so that they are released before it
};

void PlayUntilSilence() {
    const Apartment apartment(COINIT_MULTITHREADED);
    Device device(player.mainWindow, *player.sounds);
    while (WaitForSingleObject(player.wake, SilenceMs) == WAIT_OBJECT_0) device.Start(player.wanted.exchange(NoSound));
}

// A sound that was wanted in the very moment of the end is still for this thread.
void Work() noexcept {
    do {
        try {
            PlayUntilSilence();
        } catch (const std::exception&) {  // no memory: no sound
            player.wanted = NoSound;
        }
        player.atWork = false;
    } while (player.wanted != NoSound && !player.atWork.exchange(true));
}

void StartThread() {
    try {
        std::thread(Work).detach();
    } catch (const std::system_error&) {
        player.wanted = NoSound;
        player.atWork = false;
    }
}

}  // namespace

void SetSounds(WindowHandle mainWindow, std::vector<Sound> sounds) {
    player.mainWindow = ToHwnd(mainWindow);
    player.wake = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    player.sounds = new const Sounds(std::move(sounds));
}

void StartSound(std::size_t place) {
    if (player.sounds == nullptr || player.wake == nullptr || place >= player.sounds->size()) return;
    player.wanted = static_cast<std::int64_t>(place);
    SetEvent(player.wake);
    if (!player.atWork.exchange(true)) StartThread();
}

}  // namespace platform
