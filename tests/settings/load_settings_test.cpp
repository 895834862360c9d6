#include "settings/sample_settings.h"
#include "support/allocation_meter.h"
#include "support/story.h"

namespace {

constexpr std::size_t VersionAt = 0, CountdownPeriodAt = 40, SettingsLoadedAt = 44, HotkeyCountAt = 2634;
constexpr std::size_t ScheduleCountAt = 2638 + 518;

enum class Outcome { Loaded, Quiet, Box };

Outcome Load(const std::string& bytes) {
    simulated::PutFile(settingsPath, bytes);
    const std::size_t boxes = simulated::ShownBoxes().size();
    LoadSettings();
    EXPECT_EQ(settings.NothingLoaded, !settings.SettingsLoaded);
    if (settings.SettingsLoaded) return Outcome::Loaded;
    return simulated::ShownBoxes().size() > boxes ? Outcome::Box : Outcome::Quiet;
}

void ExpectDefaults() {
    EXPECT_EQ(settings.countdown_period, 3);
    EXPECT_EQ(settings.display_countdown_check, 1);
    EXPECT_EQ(settings.Display_Executing_Status, 1);
    EXPECT_EQ(settings.Display_Start_Program_Dialog, 0);
    EXPECT_EQ(settings.Check_updates, 0);  // so a first start asks no server
    EXPECT_THAT(settings.Hotkeys, IsEmpty());
    EXPECT_THAT(settings.Schedules, IsEmpty());
}

class LoadingSettings : public testing::Test {
protected:
    LoadingSettings() { PutJobs(); }
};

TEST_F(LoadingSettings, SampleIsReadFieldByField) {
    EXPECT_EQ(Load(SampleSettingsBytes()), Outcome::Loaded);
    EXPECT_EQ(Dump(settings), Dump(SampleSettings()));
    EXPECT_EQ(simulated::FileBytes(settingsPath), SampleSettingsBytes());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(simulated::OpenFiles(), 0);
}

TEST_F(LoadingSettings, VersionAndLengthDecideWhetherItIsSpokenOf) {
    const std::string smallest = SmallestSettingsBytes();
    ASSERT_THAT(smallest, SizeIs(2642));
    EXPECT_EQ(Load(smallest), Outcome::Loaded);
    EXPECT_EQ(Load(smallest.substr(0, 2641)), Outcome::Quiet);
    ExpectDefaults();
    EXPECT_EQ(Load(smallest + "tail"), Outcome::Loaded);
    const std::tuple<std::int64_t, Outcome, Outcome> cases[] = {
        {-1, Outcome::Quiet, Outcome::Quiet},   {99, Outcome::Quiet, Outcome::Quiet},
        {100, Outcome::Loaded, Outcome::Quiet}, {305, Outcome::Loaded, Outcome::Quiet},
        {306, Outcome::Loaded, Outcome::Box},   {307, Outcome::Quiet, Outcome::Quiet},
        {999, Outcome::Quiet, Outcome::Quiet},  {1000, Outcome::Quiet, Outcome::Quiet},
    };
    for (const auto& [version, good, badPeriod] : cases) {
        const std::string bytes = WithInt32(smallest, VersionAt, version);
        EXPECT_EQ(Load(bytes), good) << version;
        EXPECT_EQ(Load(WithInt32(bytes, CountdownPeriodAt, 11)), badPeriod) << version;
    }
    EXPECT_THAT(
        Boxes(),
        ElementsAre("Tessarine|File 'settings.binary' is corrupted. Press OK to reset your settings to default."));
}

TEST_F(LoadingSettings, EachCheckedFieldHasItsRange) {
    const std::size_t flags[] = {32, 36, 46, 50, 54, 58, 2622, 2626, 2630};
    for (const std::size_t at : flags) {
        for (const int value : {-1, 0, 1, 2}) {
            const Outcome expected = value == 0 || value == 1 ? Outcome::Loaded : Outcome::Box;
            EXPECT_EQ(Load(WithInt32(SmallestSettingsBytes(), at, value)), expected) << value << " at " << at;
        }
    }
    for (const int seconds : {-1, 0, 10, 11}) {
        const Outcome expected = seconds == 0 || seconds == 10 ? Outcome::Loaded : Outcome::Box;
        EXPECT_EQ(Load(WithInt32(SmallestSettingsBytes(), CountdownPeriodAt, seconds)), expected) << seconds;
    }
    // What the file says about itself is not believed.
    EXPECT_EQ(Load(SmallestSettingsBytes().replace(SettingsLoadedAt, 2, 2, '\0')), Outcome::Loaded);
}

TEST_F(LoadingSettings, CountsThatTheFileCannotHoldAreDamage) {
    const std::string whole = SampleSettingsBytes();
    for (const std::size_t at : {HotkeyCountAt, ScheduleCountAt}) {
        for (const std::int64_t count : {-1, 9, 1'000'000, 0x7FFFFFFF}) {
            AllocationMeter meter;
            EXPECT_EQ(Load(WithInt32(whole, at, count)), Outcome::Box) << count << " at " << at;
            EXPECT_LE(meter.Largest(), 20'000U);
            ExpectDefaults();
        }
    }
    for (std::size_t length = 2642; length < whole.size(); length += 7) {
        EXPECT_EQ(Load(whole.substr(0, length)), Outcome::Box) << length;
    }
}

TEST_F(LoadingSettings, EveryByteAlteredLoadsOrGivesDefaults) {
    const std::string whole = SampleSettingsBytes();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x81);
        PutJobs();
        if (Load(bytes) != Outcome::Loaded) ExpectDefaults();
        ASSERT_FALSE(HasFailure()) << "byte " << at;
    }
}

TEST_F(LoadingSettings, ReadFailureGivesDefaultsQuietly) {
    simulated::FailAtOperation(1);
    EXPECT_EQ(Load(SampleSettingsBytes()), Outcome::Loaded) << "the look whether it is there is taken again";
    for (int operation = 2; operation <= 4; ++operation) {
        simulated::FailAtOperation(operation);
        EXPECT_EQ(Load(SampleSettingsBytes()), Outcome::Quiet) << operation;
        ExpectDefaults();
    }
}

TEST_F(LoadingSettings, WhatAnotherProgramHoldsIsNotMissing) {
    simulated::PutFile(settingsPath, SampleSettingsBytes());
    simulated::LockFileAgainstReaders(settingsPath, 500);
    simulated::LockFileAgainstReaders(SampleSettings().Hotkeys.front().job_path);
    simulated::LockFileAgainstReaders(SampleSettings().Schedules.front().job_path);
    LoadSettings();
    EXPECT_EQ(Dump(settings), Dump(SampleSettings()));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(LoadingSettings, HotkeyWithoutItsJobVanishesSilently) {
    FileBytes file = SampleOptions();
    file.Int32(4);
    for (const char* job : {"C:\\gone1.tsj", "C:\\gone2.tsj", "C:\\data\\Letter.tsj", "C:\\gone3.tsj"}) {
        file.Int32(2).Int16('X').Text(job, 512);
    }
    file.Int32(0);
    EXPECT_EQ(Load(file), Outcome::Loaded);
    ASSERT_THAT(settings.Hotkeys, SizeIs(1));
    EXPECT_EQ(settings.Hotkeys[0].job_path, hotkeyJob);
    EXPECT_EQ(simulated::FileBytes(settingsPath), file.All());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(LoadingSettings, SchedulesWithoutTheirJobAreToldAndTheFileIsWritten) {
    simulated::LosePath(scheduledJob);
    EXPECT_EQ(Load(SampleSettingsBytes()), Outcome::Loaded);
    EXPECT_THAT(settings.Schedules, IsEmpty());
    EXPECT_THAT(Boxes(), ElementsAre("File is missing|Schedule named 'At start' will be deleted because job "
                                     "'C:\\data\\Backup.tsj' cannot be found",
                                     HasSubstr("'Month's end'")));
    const std::string whole = SampleSettingsBytes();
    EXPECT_EQ(simulated::FileBytes(settingsPath), WithInt32(whole, ScheduleCountAt, 0))
        << "the old schedules stay as a tail";
    LoadSettings();
    EXPECT_THAT(Boxes(), SizeIs(2)) << "told once";
}

TEST_F(LoadingSettings, StartsEvenWhenTheCleanedFileCannotBeWritten) {
    simulated::LosePath(scheduledJob);
    simulated::PutFile(settingsPath, SampleSettingsBytes());
    simulated::SetFreeSpace(0);
    EXPECT_NO_THROW(LoadSettings());
    EXPECT_TRUE(settings.SettingsLoaded);
    EXPECT_EQ(settings.countdown_period, 10);
    EXPECT_THAT(settings.Schedules, IsEmpty());
}

TEST_F(LoadingSettings, FirstRunEndsWithFiveSecondsOfCountdown) {
    LoadSettings();
    EXPECT_EQ(settings.countdown_period, 3);
    ApplyFirstRunValues();
    EXPECT_EQ(settings.countdown_period, 5);
    EXPECT_EQ(settings.Display_Recording_Window, 1);
    EXPECT_EQ(settings.Check_updates, 1);
    EXPECT_EQ(settings.Display_Start_Program_Dialog, 0);
    EXPECT_EQ(settings.Capture_Mouse_Moves, 1);
    EXPECT_TRUE(settings.SettingsLoaded);
}

TEST(MainWindowPosition, IsTheStoredOneOnlyIfTheWindowFitsThere) {
    const platform::Size window{4000, 3000};
    const platform::Size screen{10000, 8000};
    const platform::Point centre{3000, 2500};
    const std::pair<platform::Point, platform::Point> cases[] = {
        {{1, 1}, {1, 1}},    {{6000, 5000}, {6000, 5000}}, {{0, 100}, centre},    {{100, 0}, centre},
        {{6001, 1}, centre}, {{1, 5001}, centre},          {{-500, 100}, centre}, {{2147483647, 1}, centre},
    };
    for (const auto& [stored, expected] : cases) {
        settings.MainLeft = stored.x;
        settings.MainTop = stored.y;
        EXPECT_EQ(MainWindowPosition(window, screen), expected) << stored.x << ", " << stored.y;
    }
}

}  // namespace
