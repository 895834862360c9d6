#include "settings/sample_settings.h"
#include "support/allocation_meter.h"
#include "support/story.h"

namespace {

constexpr std::size_t VersionAt = 0, CountdownPeriodAt = 40, SettingsLoadedAt = 44, HotkeyCountAt = 2634;
constexpr std::size_t ScheduleCountAt = 2638 + 518;

enum class Outcome { Loaded, Unreadable, Corrupted };

const std::string keptPath = "C:\\data\\settings (kept).binary";
const std::string corrupted =
    "Tessarine|File 'settings.binary' is corrupted. Press OK to reset your settings to default.";
const std::string unreadable = "Tessarine|Your settings cannot be read. They are reset to default.";
const std::string keptLine = "\r\nThe old file is kept as '" + keptPath + "'.";

Outcome Load(const std::string& bytes) {
    simulated::LosePath(keptPath);
    simulated::PutFile(settingsPath, bytes);
    const std::size_t boxes = simulated::ShownBoxes().size();
    LoadSettings();
    EXPECT_EQ(settings.NothingLoaded, !settings.SettingsLoaded);
    if (settings.SettingsLoaded) return Outcome::Loaded;
    EXPECT_EQ(simulated::ShownBoxes().size(), boxes + 1) << "told once";
    EXPECT_EQ(simulated::FileBytes(keptPath), bytes);
    EXPECT_FALSE(simulated::FileBytes(settingsPath)) << "which the next start does not speak of again";
    const std::string told = LastBox();
    EXPECT_TRUE(told == corrupted + keptLine || told == unreadable + keptLine) << told;
    return told.starts_with(corrupted) ? Outcome::Corrupted : Outcome::Unreadable;
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

TEST_F(LoadingSettings, VersionAndLengthDecideWhatIsSaidOfAFileThatIsKept) {
    const std::string smallest = SmallestSettingsBytes();
    ASSERT_THAT(smallest, SizeIs(2642));
    EXPECT_EQ(Load(smallest), Outcome::Loaded);
    EXPECT_EQ(Load(smallest.substr(0, 2641)), Outcome::Unreadable);
    ExpectDefaults();
    EXPECT_EQ(Load(smallest + "tail"), Outcome::Loaded);
    const std::tuple<std::int64_t, Outcome, Outcome> cases[] = {
        {-1, Outcome::Unreadable, Outcome::Unreadable},  {99, Outcome::Unreadable, Outcome::Unreadable},
        {100, Outcome::Loaded, Outcome::Unreadable},     {305, Outcome::Loaded, Outcome::Unreadable},
        {306, Outcome::Loaded, Outcome::Corrupted},      {307, Outcome::Unreadable, Outcome::Unreadable},
        {999, Outcome::Unreadable, Outcome::Unreadable}, {1000, Outcome::Unreadable, Outcome::Unreadable},
    };
    for (const auto& [version, good, badPeriod] : cases) {
        const std::string bytes = WithInt32(smallest, VersionAt, version);
        EXPECT_EQ(Load(bytes), good) << version;
        EXPECT_EQ(Load(WithInt32(bytes, CountdownPeriodAt, 11)), badPeriod) << version;
    }
}

TEST_F(LoadingSettings, EachCheckedFieldHasItsRange) {
    const std::size_t flags[] = {32, 36, 46, 50, 54, 58, 2622, 2626, 2630};
    for (const std::size_t at : flags) {
        for (const int value : {-1, 0, 1, 2}) {
            const Outcome expected = value == 0 || value == 1 ? Outcome::Loaded : Outcome::Corrupted;
            EXPECT_EQ(Load(WithInt32(SmallestSettingsBytes(), at, value)), expected) << value << " at " << at;
        }
    }
    for (const int seconds : {-1, 0, 10, 11}) {
        const Outcome expected = seconds == 0 || seconds == 10 ? Outcome::Loaded : Outcome::Corrupted;
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
            EXPECT_EQ(Load(WithInt32(whole, at, count)), Outcome::Corrupted) << count << " at " << at;
            EXPECT_LE(meter.Largest(), 20'000U);
            ExpectDefaults();
        }
    }
    for (std::size_t length = 2642; length < whole.size(); length += 7) {
        EXPECT_EQ(Load(whole.substr(0, length)), Outcome::Corrupted) << length;
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

// A failure at any operation: the file is loaded, or it is there under one name or another. Nothing is written over.
TEST_F(LoadingSettings, NoFailureLosesAFileThatCannotBeRead) {
    for (const std::string& bytes : {SampleSettingsBytes(), SampleSettingsBytes().substr(0, 2641)}) {
        for (const simulated::Fault fault : {simulated::Fault::Failure, simulated::Fault::PowerCut}) {
            bool struck = true;
            for (std::int64_t operation = 1; struck; ++operation) {
                SCOPED_TRACE(operation);
                simulated::RestartDisk();
                simulated::LosePath("C:\\data");
                PutJobs();
                simulated::PutFile(settingsPath, bytes);
                const std::int64_t before = simulated::FileOperations();
                simulated::FailAtOperation(operation, fault);
                LoadSettings();
                try {
                    SaveSettings();
                } catch (const RuntimeFailure&) {
                }
                struck = simulated::FileOperations() - before >= operation;
                simulated::RestartDisk();
                EXPECT_TRUE(std::ranges::any_of(simulated::AllFiles(), [&](const std::string& file) {
                    return simulated::FileBytes(file) == bytes;
                }));
                if (HasFailure()) return;
            }
        }
    }
}

TEST_F(LoadingSettings, AFileThatIsHeldIsTriedAgainAfterOneBoxAndKeptBeforeASave) {
    simulated::PutFile(settingsPath, SampleSettingsBytes());
    simulated::LockFileAgainstReaders(settingsPath);
    simulated::AnswerNextBox({.whileOpen = [] { simulated::LockFile(settingsPath, 0); }});
    LoadSettings();
    EXPECT_EQ(Dump(settings), Dump(SampleSettings())) << "the other program was closed meanwhile";
    ASSERT_THAT(Boxes(), ElementsAre(testing::HasSubstr("in use by another program")));

    simulated::LockFileAgainstReaders(settingsPath);
    LoadSettings();
    ExpectDefaults();
    EXPECT_THAT(Boxes(), SizeIs(2));
    EXPECT_THROW(SaveSettings(), RuntimeFailure) << "still held: nothing may take its place";
    simulated::LockFile(settingsPath, 0);
    SaveSettings();
    EXPECT_EQ(simulated::FileBytes(keptPath), SampleSettingsBytes());
    EXPECT_EQ(simulated::FileBytes(settingsPath)->size(), 2642U);
    SaveSettings();
    EXPECT_THAT(simulated::AllFiles(), SizeIs(4)) << "kept once";
    EXPECT_THAT(Boxes(), SizeIs(2));
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

// A stick, or a drive of the network, that is not there at this start.
TEST_F(LoadingSettings, AJobOnADriveThatIsGoneIsNotMissing) {
    Settings onAStick = SampleSettings();
    onAStick.Hotkeys[0].job_path = onAStick.Schedules[0].job_path = "E:\\Jobs\\Backup.tsj";
    settings = onAStick;
    SaveSettings();
    simulated::LosePath("E:");
    LoadSettings();
    EXPECT_THAT(settings.Hotkeys, SizeIs(1));
    EXPECT_THAT(settings.Schedules, SizeIs(2));
    EXPECT_THAT(Boxes(), IsEmpty());
    simulated::PutFolder("E:\\Jobs");
    LoadSettings();
    EXPECT_THAT(settings.Hotkeys, IsEmpty());
    EXPECT_THAT(settings.Schedules, SizeIs(1)) << "the stick is here, and no such job on it";
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
