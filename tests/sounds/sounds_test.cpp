#include "sounds/sounds.h"

#include "sample_bank.h"
#include "settings/folders.h"
#include "settings/settings.h"
#include "sounds/key_sounds.h"
#include "support/story.h"

namespace {

class ProgramsSounds : public testing::Test {
protected:
    ProgramsSounds() {
        folders.ProgramFolder = "C:\\Program Files\\Tessarine";
        simulated::PutFolder(folders.ProgramFolder);
        settings.Play_Menu_Sounds = settings.play_sounds_for_keystrokes = 1;
    }

    static void PlayAll() {
        PlayMenuSound();
        for (int index = -1; index <= KeySoundCount(); ++index) PlayKeySound(index);
    }
};

TEST_F(ProgramsSounds, AreTheFirstOfTheBankForTheMenuAndTheOthersForKeys) {
    simulated::PutFile(bankPath, SampleBank());
    LoadSounds(1);
    EXPECT_TRUE(SoundsReady());
    EXPECT_TRUE(SoundSwitchesEnabled());
    ASSERT_EQ(simulated::Sounds().size(), 3U);
    EXPECT_EQ(simulated::Sounds()[1].samples, "ab");
    EXPECT_EQ(KeySoundCount(), 2);
    PlayAll();
    EXPECT_THAT(simulated::StartedSounds(), ElementsAre(0, 1, 2));
    settings.Play_Menu_Sounds = 0;
    PlayMenuSound();
    EXPECT_THAT(simulated::StartedSounds(), SizeIs(3));
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(simulated::AllFiles().size(), 1U) << "nothing is left behind";
}

TEST_F(ProgramsSounds, WithoutABankAreToldOnceAndTheirSwitchesTakenAway) {
    LoadSounds(1);
    EXPECT_THAT(Boxes(), ElementsAre("Tessarine|Sound cannot be initialized: 'sounds.bin' File is missing"));
    EXPECT_FALSE(SoundsReady());
    EXPECT_FALSE(SoundSwitchesEnabled());
    EXPECT_EQ(settings.Play_Menu_Sounds, 0);
    EXPECT_EQ(settings.play_sounds_for_keystrokes, 0);
    settings.Play_Menu_Sounds = 1;
    PlayAll();
    EXPECT_THAT(simulated::StartedSounds(), IsEmpty());
}

TEST_F(ProgramsSounds, OfABankThatCannotBeReadAreSilentWithoutAWord) {
    for (const bool held : {false, true}) {
        simulated::PutFile(bankPath, held ? SampleBank() : SampleBank().substr(0, 100));
        if (held) simulated::LockFileAgainstReaders(bankPath);
        LoadSounds(1);
        PlayAll();
        EXPECT_FALSE(SoundsReady());
        EXPECT_TRUE(SoundSwitchesEnabled());
        EXPECT_EQ(KeySoundCount(), 0);
    }
    EXPECT_EQ(settings.play_sounds_for_keystrokes, 1);
    EXPECT_THAT(simulated::StartedSounds(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(platform::TickCount(), 0) << "the start waits for nothing";
}

}  // namespace
