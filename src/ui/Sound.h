#pragma once

#include <AL/al.h>
#include <allegro.h>

#include <string>

namespace Grevan {

// One named sound effect: an OpenAL buffer made from a WAV file and one source bound to it.
// Playing it again before it ended restarts it. Allegro's sample and MIDI slots are kept for
// a later use and stay empty.
class Sound {
  public:
    Sound() = default;
    // Deletes the OpenAL source and buffer; a sound is only ever loaded while an OpenAL
    // context is current.
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    // Needs a current OpenAL context (SoundSystem makes sure of it). False, with a line on
    // standard error, when the file cannot be read.
    bool load(const std::string& file);
    void play();
    void play(int volume);
    // Stops only Allegro's sample and MIDI, not the OpenAL source.
    void stop();

    bool isLoaded() const { return source != 0; }
    ALuint getSource() const { return source; }
    const std::string& getName() const { return name; }
    void setName(const std::string& n) { name = n; }
    int getPan() const { return pan; }
    void setPan(int p) { pan = p; }
    int getPitch() const { return pitch; }
    void setPitch(int p) { pitch = p; }
    int getVolume() const { return volume; }
    void setVolume(int v) { volume = v; }

  private:
    std::string name;
    SAMPLE* sample = nullptr;
    MIDI* midi = nullptr;
    int pan = 128;     // Allegro's 0 to 255, 128 the centre
    int pitch = 1000;  // Allegro's frequency factor, 1000 unchanged
    int volume = 255;  // 0 to 255
    ALuint source = 0;
    ALuint buffer = 0;
};

}  // namespace Grevan
