#include "ui/Sound.h"

#include <AL/alut.h>

#include <cstdio>

namespace Grevan {

Sound::~Sound() {
    if (source != 0) {
        alDeleteSources(1, &source);
    }
    if (buffer != 0) {
        alDeleteBuffers(1, &buffer);
    }
}

bool Sound::load(const std::string& file) {
    buffer = alutCreateBufferFromFile(file.c_str());
    if (buffer == 0) {
        fprintf(stderr, "failed to create al buffer.\n");
        return false;
    }
    alGenSources(1, &source);
    alSourcei(source, AL_BUFFER, static_cast<ALint>(buffer));
    return true;
}

void Sound::play() {
    if (source != 0) {
        alSourcePlay(source);
    }
}

void Sound::play(int vol) {
    play();
    if (sample) {
        play_sample(sample, vol, pan, pitch, 0);
    }
    if (midi) {
        play_midi(midi, 0);
    }
}

void Sound::stop() {
    if (sample) {
        stop_sample(sample);
    }
    if (midi) {
        stop_midi();
    }
}

}  // namespace Grevan
