#include "ui/SoundSystem.h"

#include <AL/alut.h>
#include <allegro.h>

#include <algorithm>
#include <cstdio>

#include "ui/SoundFiles.h"

namespace Grevan {

SoundSystem::SoundSystem() {
    audioOpen = alutInit(nullptr, nullptr) == AL_TRUE;
}

SoundSystem::~SoundSystem() {
    // The sounds' sources and buffers must go while the context is still current.
    cleanup();
    if (audioOpen) {
        alutExit();
    }
}

bool SoundSystem::initialize() {
    char emptyConfiguration[] = "";
    if (install_sound(DIGI_AUTODETECT, MIDI_AUTODETECT, emptyConfiguration) != 0) {
        allegro_message("failed to install sound card: %s.", allegro_error);
        return false;
    }
    defaultPan = 128;
    defaultPitch = 1000;
    defaultVolume = 255;
    set_volume(128, 128);
    for (const SoundFile& row : kSoundFiles) {
        addSound(row.name, row.file);
    }
    return true;
}

Sound* SoundSystem::addSound(const std::string& name, const std::string& file) {
    auto sound = std::make_unique<Sound>();
    sound->setName(name);
    if (audioOpen) {
        sound->load(file);
    }
    sound->setPan(defaultPan);
    sound->setPitch(defaultPitch);
    sound->setVolume(defaultVolume);
    sounds.push_back(std::move(sound));
    return sounds.back().get();
}

Sound* SoundSystem::getSound(const std::string& name) {
    for (const std::unique_ptr<Sound>& sound : sounds) {
        if (sound->getName() == name) {
            return sound.get();
        }
    }
    return nullptr;
}

void SoundSystem::playSound(const std::string& name) {
    Sound* sound = getSound(name);
    if (!sound) {
        // The "%s" is part of the line as it stands, not a format.
        printf("sound not found: %%s%s\n", name.c_str());
        return;
    }
    sound->play(defaultVolume);
}

void SoundSystem::removeSound(const std::string& name) {
    auto found = std::find_if(sounds.begin(), sounds.end(),
                              [&name](const std::unique_ptr<Sound>& s) { return s->getName() == name; });
    if (found != sounds.end()) {
        sounds.erase(found);
    }
}

void SoundSystem::stopAll() {
    for (const std::unique_ptr<Sound>& sound : sounds) {
        sound->stop();
    }
}

void SoundSystem::cleanup() {
    sounds.clear();
}

}  // namespace Grevan
