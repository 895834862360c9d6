#include "settings/sample_settings.h"
#include "support/disk_faults.h"
#include "support/settings_view_stand_in.h"
#include "support/story.h"

namespace {

class SavingSettings : public testing::Test {
protected:
    SavingSettings() {
        PutJobs();
        settings = SampleSettings();
    }
};

TEST_F(SavingSettings, SampleIsWrittenByteForByte) {
    SaveSettings();
    EXPECT_EQ(simulated::FileBytes(settingsPath), SampleSettingsBytes());
    settings.Hotkeys.clear();
    settings.Schedules.clear();
    simulated::LosePath(settingsPath);
    SaveSettings();
    EXPECT_EQ(simulated::FileBytes(settingsPath), SmallestSettingsBytes());
}

TEST_F(SavingSettings, ControlsAreCopiedFirst) {
    settingsViewStandIn.copy = [] { settings.MainLeft = 12345; };
    SaveSettings();
    EXPECT_EQ(simulated::FileBytes(settingsPath), WithInt32(SampleSettingsBytes(), 4, 12345));
}

TEST_F(SavingSettings, SuppressionStaysInMemoryOnly) {
    settings.Schedules[1].suppressed = 1;
    SaveSettings();
    EXPECT_EQ(settings.Schedules[1].suppressed, 1);
    EXPECT_EQ(simulated::FileBytes(settingsPath), SampleSettingsBytes());
    LoadSettings();
    EXPECT_EQ(settings.Schedules[1].suppressed, 0);
}

TEST_F(SavingSettings, SurvivesEveryFault) {
    const std::string oldBytes(7000, 'o');
    SurvivesEveryFault(
        {settingsPath, oldBytes, SampleSettingsBytes() + oldBytes.substr(SampleSettingsBytes().size()), SaveSettings});
}

}  // namespace
