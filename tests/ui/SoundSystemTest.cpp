#include "ui/SoundSystem.h"

#include <AL/al.h>
#include <gtest/gtest.h>

#include <string>

#include "support/HeadlessGame.h"
#include "support/TestSupport.h"

using Grevan::SoundSystem;
using GrevanTest::printedBy;

namespace {

using SoundSystemTest = HeadlessGame;

const char* const kTableNames[] = {"gun",           "pistol",    "grenade_hitground", "grenade_explode",
                                   "pistol_reload", "gun_reload"};

// A name that is not in the table plays nothing and says so (its "%s" as it stands); one whose file
// cannot be read plays nothing silently.
TEST_F(SoundSystemTest, EveryNameOfTheTableHasASourceThatPlaysAgainFromTheStartAndOtherNamesAreNotFound) {
    SoundSystem& sounds = game->getSoundSystem();
    ASSERT_TRUE(sounds.hasAudio()) << "tests run with ALSOFT_DRIVERS=null";
    ALuint previous = 0;
    for (const char* name : kTableNames) {
        Grevan::Sound* sound = sounds.getSound(name);
        ASSERT_TRUE(sound && sound->isLoaded()) << name;
        EXPECT_NE(sound->getSource(), previous) << "a shared file still gets a source per name";
        previous = sound->getSource();
        EXPECT_EQ(printedBy([&] { sounds.playSound(name); }), "") << name;
        sounds.playSound(name);  // again: its one source starts over
        ALint state = 0;
        alGetSourcei(sound->getSource(), AL_SOURCE_STATE, &state);
        EXPECT_EQ(state, AL_PLAYING) << name;
    }
    testing::internal::CaptureStderr();
    EXPECT_FALSE(sounds.addSound("click", "sound/weapons/absent.wav")->isLoaded());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "failed to create al buffer.\n");
    for (std::string name : {"knife", "GUN", "", "click"}) {
        EXPECT_EQ(printedBy([&] { sounds.playSound(name); }),
                  name == "click" ? "" : "sound not found: %s" + name + "\n");
    }
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
