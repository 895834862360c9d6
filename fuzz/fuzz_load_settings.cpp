// Any bytes at all as settings.binary: the program starts, with the settings of the file or with the defaults, in
// memory that is in proportion to the file; settings that were loaded are saved and loaded the same.
#include <cstdint>

#include "fuzz/require.h"
#include "settings/sample_settings.h"
#include "support/allocation_meter.h"

namespace {

// A save writes in blocks of this size or less.
constexpr std::size_t Block = std::size_t{128} * 1024;

void Load(std::size_t size) {
    const AllocationMeter meter;
    LoadSettings();
    Require(meter.Largest() <= Block + 8 * size, "memory in proportion to the file");
    Require(settings.SettingsLoaded || (settings.Hotkeys.empty() && settings.Schedules.empty()), "all or nothing");
    Require(settings.countdown_period >= 0 && settings.countdown_period <= 10, "a checked field is in its range");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    simulated::LosePath(folders.DataFolder);  // what the input before has left there
    PutJobs();
    simulated::PutFile(settingsPath, std::string(reinterpret_cast<const char*>(data), size));
    Load(size);
    if (!settings.SettingsLoaded) return 0;
    const std::string loaded = Dump(settings);
    SaveSettings();
    LoadSettings();
    Require(settings.SettingsLoaded && Dump(settings) == loaded, "what was saved is loaded back");
    return 0;
}
