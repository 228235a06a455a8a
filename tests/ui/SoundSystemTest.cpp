#include "ui/SoundSystem.h"

#include <AL/al.h>
#include <gtest/gtest.h>

#include <string>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::Sound;
using Grevan::SoundSystem;
using GrevanTest::printedBy;

namespace {

using SoundSystemTest = HeadlessGame;

const char* const kTableNames[] = {"gun",           "pistol",    "grenade_hitground", "grenade_explode",
                                   "pistol_reload", "gun_reload"};

TEST_F(SoundSystemTest, EveryNameOfTheTableHasASourceThatPlaysAgainFromTheStartAndOtherNamesAreNotFound) {
    SoundSystem& sounds = game->getSoundSystem();
    ASSERT_TRUE(sounds.hasAudio()) << "tests run with ALSOFT_DRIVERS=null";
    ALuint previous = 0;
    for (const char* name : kTableNames) {
        Sound* sound = sounds.getSound(name);
        ASSERT_NE(sound, nullptr) << name;
        EXPECT_TRUE(sound->isLoaded()) << name;
        EXPECT_NE(sound->getSource(), previous) << "a shared file still gets a source per name";
        previous = sound->getSource();
        EXPECT_EQ(printedBy([&] { sounds.playSound(name); }), "") << name;
        sounds.playSound(name);  // again: its one source starts over
        ALint state = 0;
        alGetSourcei(sound->getSource(), AL_SOURCE_STATE, &state);
        EXPECT_EQ(state, AL_PLAYING) << name;
    }
    // The "%s" is printed as it stands.
    for (std::string name : {"knife", "GUN", ""}) {
        EXPECT_EQ(printedBy([&] { sounds.playSound(name); }), "sound not found: %s" + name + "\n");
    }
}

TEST_F(SoundSystemTest, AnUnreadableFileKeepsItsNameWithoutASourceAndRemovingANameTakesOnlyTheFirst) {
    SoundSystem& sounds = game->getSoundSystem();
    Sound* first = sounds.addSound("click", "sound/weapons/p228-1.wav");
    testing::internal::CaptureStderr();
    Sound* broken = sounds.addSound("click", "sound/weapons/absent.wav");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "failed to create al buffer.\n");
    EXPECT_FALSE(broken->isLoaded());
    EXPECT_EQ(sounds.getSound("click"), first);
    sounds.removeSound("click");
    EXPECT_EQ(sounds.getSound("click"), broken);
    EXPECT_EQ(printedBy([&] { sounds.playSound("click"); }), "");
    sounds.removeSound("click");
    sounds.removeSound("click");
    EXPECT_EQ(sounds.getSound("click"), nullptr);
    EXPECT_EQ(sounds.getSoundCount(), 6);
}

// OpenAL reads its driver list once per process, so the silent game runs in a child process of
// its own, started afresh with a driver that does not exist.
TEST(SoundSystemSilentDeathTest, WithoutAnAudioDeviceKnownNamesPlayNothing) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::string saved = getenv("ALSOFT_DRIVERS") ? getenv("ALSOFT_DRIVERS") : "";
    setenv("ALSOFT_DRIVERS", "no-such-driver", 1);
    EXPECT_EXIT(
        {
            testing::internal::CaptureStderr();
            Grevan::Game silent(Grevan::StartMode::HEADLESS);
            SoundSystem& sounds = silent.getSoundSystem();
            bool quiet = !sounds.hasAudio() && sounds.getSoundCount() == 6;
            for (const char* name : kTableNames) {
                quiet = quiet && !sounds.getSound(name)->isLoaded() &&
                        printedBy([&] { sounds.playSound(name); }).empty();
            }
            exit(quiet ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    setenv("ALSOFT_DRIVERS", saved.c_str(), 1);
}

}  // namespace
