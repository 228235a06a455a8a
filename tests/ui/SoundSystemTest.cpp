#include "ui/SoundSystem.h"

#include <AL/al.h>
#include <gtest/gtest.h>

#include <string>

#include "support/HeadlessGame.h"

using Grevan::Sound;
using Grevan::SoundSystem;

namespace {

using SoundSystemTest = HeadlessGame;

const char* const kTableNames[] = {"gun",           "pistol",    "grenade_hitground", "grenade_explode",
                                   "pistol_reload", "gun_reload"};

ALint sourceState(Sound* sound) {
    ALint state = 0;
    alGetSourcei(sound->getSource(), AL_SOURCE_STATE, &state);
    return state;
}

TEST_F(SoundSystemTest, EveryNameOfTheTableLoadsItsOwnSourceAndPlays) {
    SoundSystem& sounds = game->getSoundSystem();
    ASSERT_TRUE(sounds.hasAudio()) << "tests run with ALSOFT_DRIVERS=null";
    ASSERT_EQ(sounds.getSoundCount(), 6);
    for (const char* name : kTableNames) {
        Sound* sound = sounds.getSound(name);
        ASSERT_NE(sound, nullptr) << name;
        EXPECT_TRUE(sound->isLoaded()) << name;
        testing::internal::CaptureStdout();
        sounds.playSound(name);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << name;
        EXPECT_EQ(sourceState(sound), AL_PLAYING) << name;
    }
    EXPECT_NE(sounds.getSound("gun_reload")->getSource(), sounds.getSound("pistol_reload")->getSource())
        << "a shared file still gets a source per name";
}

TEST_F(SoundSystemTest, PlayingAgainRestartsTheOneSource) {
    SoundSystem& sounds = game->getSoundSystem();
    Sound* gun = sounds.getSound("gun");
    sounds.playSound("gun");
    sounds.playSound("gun");
    EXPECT_EQ(sourceState(gun), AL_PLAYING);
    EXPECT_EQ(sounds.getSound("gun"), gun);
}

TEST_F(SoundSystemTest, UnknownNamePrintsTheNotFoundLineWithItsLiteralPercentS) {
    struct Case {
        const char* name;
        const char* line;
    } cases[] = {
        {"knife", "sound not found: %sknife\n"},
        {"GUN", "sound not found: %sGUN\n"},
        {"", "sound not found: %s\n"},
    };
    for (const Case& c : cases) {
        testing::internal::CaptureStdout();
        game->getSoundSystem().playSound(c.name);
        fflush(stdout);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), c.line);
    }
}

TEST_F(SoundSystemTest, RemovingANameAddedTwiceRemovesOnlyTheFirst) {
    SoundSystem& sounds = game->getSoundSystem();
    Sound* first = sounds.addSound("click", "sound/weapons/p228-1.wav");
    Sound* second = sounds.addSound("click", "sound/weapons/m4a1_unsil-1.wav");
    EXPECT_EQ(sounds.getSound("click"), first);
    sounds.removeSound("click");
    EXPECT_EQ(sounds.getSound("click"), second);
    sounds.removeSound("click");
    EXPECT_EQ(sounds.getSound("click"), nullptr);
    sounds.removeSound("click");
    EXPECT_EQ(sounds.getSoundCount(), 6);
}

TEST_F(SoundSystemTest, UnreadableFileKeepsTheNameWithoutASource) {
    SoundSystem& sounds = game->getSoundSystem();
    testing::internal::CaptureStderr();
    Sound* broken = sounds.addSound("broken", "sound/weapons/absent.wav");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "failed to create al buffer.\n");
    EXPECT_FALSE(broken->isLoaded());
    testing::internal::CaptureStdout();
    sounds.playSound("broken");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

// OpenAL reads its driver list once per process, so the silent game runs in a child process of
// its own, started afresh with a driver that does not exist.
bool silentGamePlaysNothing() {
    testing::internal::CaptureStderr();
    Grevan::Game silent(Grevan::StartMode::HEADLESS);
    SoundSystem& sounds = silent.getSoundSystem();
    bool quiet = !sounds.hasAudio() && sounds.getSoundCount() == 6;
    testing::internal::CaptureStdout();
    for (const char* name : kTableNames) {
        quiet = quiet && !sounds.getSound(name)->isLoaded();
        sounds.playSound(name);
    }
    fflush(stdout);
    return quiet && testing::internal::GetCapturedStdout().empty();
}

TEST(SoundSystemSilentDeathTest, WithoutAnAudioDeviceKnownNamesPlayNothing) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::string saved = getenv("ALSOFT_DRIVERS") ? getenv("ALSOFT_DRIVERS") : "";
    setenv("ALSOFT_DRIVERS", "no-such-driver", 1);
    EXPECT_EXIT(exit(silentGamePlaysNothing() ? 0 : 1), testing::ExitedWithCode(0), "");
    setenv("ALSOFT_DRIVERS", saved.c_str(), 1);
}

}  // namespace
