#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/Sound.h"

namespace Grevan {

// The game's library of named sound effects, loaded once at start-up and played by name.
// Without an audio device the game runs silently: the names are known, nothing plays, and no
// OpenAL call is made.
class SoundSystem {
  public:
    // Opens the OpenAL context; needs no Allegro.
    SoundSystem();
    ~SoundSystem();
    SoundSystem(const SoundSystem&) = delete;
    SoundSystem& operator=(const SoundSystem&) = delete;

    // Installs Allegro's sound driver and loads the sound table; needs Allegro. False, with a
    // message, when no sound driver could be installed; the table then stays empty.
    bool initialize();

    // The sound keeps no source when its file cannot be read or no audio device is open.
    Sound* addSound(const std::string& name, const std::string& file);
    Sound* getSound(const std::string& name);
    void playSound(const std::string& name);
    void removeSound(const std::string& name);
    void stopAll();
    void cleanup();

    bool hasAudio() const { return audioOpen; }
    int getSoundCount() const { return static_cast<int>(sounds.size()); }

  private:
    int defaultPan = 128;
    int defaultPitch = 1000;
    int defaultVolume = 255;
    std::vector<std::unique_ptr<Sound>> sounds;
    bool audioOpen = false;
};

}  // namespace Grevan
