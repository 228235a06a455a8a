// Writes Grevan's weapon sound effects as 16-bit mono WAV files, synthesised from noise and
// sine partials with a fixed seed, so every run gives the same bytes.
//
//   soundgen OUTPUT_FOLDER
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

const int kSampleRate = 22050;  // samples per second
const double kPi = 3.14159265358979323846;

using Samples = std::vector<double>;

// A small linear congruential generator: the sounds must not change between runs or machines.
class Noise {
  public:
    double next() {
        state = state * 1664525u + 1013904223u;
        return static_cast<double>(state >> 8) / static_cast<double>(1u << 24) * 2.0 - 1.0;
    }

  private:
    uint32_t state = 0x5eed1234u;
};

Samples silence(double seconds) {
    return Samples(static_cast<size_t>(seconds * kSampleRate), 0.0);
}

double timeOf(size_t i) {
    return static_cast<double>(i) / kSampleRate;
}

// One-pole low-pass filter; cutoff in hertz.
void lowPass(Samples& s, double cutoff) {
    double alpha = 1.0 - std::exp(-2.0 * kPi * cutoff / kSampleRate);
    double held = 0.0;
    for (double& v : s) {
        held += alpha * (v - held);
        v = held;
    }
}

// Adds a burst of noise starting at `start` seconds that decays with time constant `decay`.
void addNoiseBurst(Samples& s, Noise& noise, double start, double decay, double level) {
    for (size_t i = static_cast<size_t>(start * kSampleRate); i < s.size(); i++) {
        double t = timeOf(i) - start;
        s[i] += level * noise.next() * std::exp(-t / decay);
    }
}

// Adds a decaying sine whose frequency glides from `from` to `to` hertz over its decay.
void addTone(Samples& s, double start, double from, double to, double decay, double level) {
    double phase = 0.0;
    for (size_t i = static_cast<size_t>(start * kSampleRate); i < s.size(); i++) {
        double t = timeOf(i) - start;
        double glide = std::exp(-t / decay);
        double frequency = to + (from - to) * glide;
        phase += 2.0 * kPi * frequency / kSampleRate;
        s[i] += level * std::sin(phase) * glide;
    }
}

// Scales the loudest sample to `peak` and fades the last 5 ms out so the end does not click.
void finish(Samples& s, double peak) {
    double loudest = 1e-9;
    for (double v : s) {
        loudest = std::fmax(loudest, std::fabs(v));
    }
    size_t fade = kSampleRate / 200;
    for (size_t i = 0; i < s.size(); i++) {
        s[i] *= peak / loudest;
        if (i + fade > s.size()) {
            s[i] *= static_cast<double>(s.size() - i) / fade;
        }
    }
}

void putLittleEndian(FILE* f, uint32_t value, int bytes) {
    for (int b = 0; b < bytes; b++) {
        fputc(static_cast<int>((value >> (8 * b)) & 0xff), f);
    }
}

bool writeWav(const std::string& path, const Samples& s) {
    FILE* f = fopen(path.c_str(), "wb");
    if (!f) {
        fprintf(stderr, "cannot write %s\n", path.c_str());
        return false;
    }
    uint32_t dataBytes = static_cast<uint32_t>(s.size() * 2);
    fputs("RIFF", f);
    putLittleEndian(f, 36 + dataBytes, 4);
    fputs("WAVEfmt ", f);
    putLittleEndian(f, 16, 4);  // size of the format chunk
    putLittleEndian(f, 1, 2);   // PCM
    putLittleEndian(f, 1, 2);   // mono
    putLittleEndian(f, kSampleRate, 4);
    putLittleEndian(f, kSampleRate * 2, 4);  // bytes per second
    putLittleEndian(f, 2, 2);                // bytes per sample frame
    putLittleEndian(f, 16, 2);               // bits per sample
    fputs("data", f);
    putLittleEndian(f, dataBytes, 4);
    for (double v : s) {
        long sample = std::lround(std::fmax(-1.0, std::fmin(1.0, v)) * 32767.0);
        putLittleEndian(f, static_cast<uint32_t>(static_cast<int16_t>(sample)) & 0xffff, 2);
    }
    bool ok = fclose(f) == 0;
    printf("%s: %zu samples\n", path.c_str(), s.size());
    return ok;
}

// A rifle shot: a bright crack over a low thump, with a short tail.
Samples rifleShot(Noise& noise) {
    Samples s = silence(0.22);
    addNoiseBurst(s, noise, 0.0, 0.035, 1.0);
    lowPass(s, 3500);
    addTone(s, 0.0, 160, 55, 0.05, 0.8);
    addNoiseBurst(s, noise, 0.004, 0.09, 0.12);
    finish(s, 0.9);
    return s;
}

// A pistol shot: shorter and sharper than the rifle, less body.
Samples pistolShot(Noise& noise) {
    Samples s = silence(0.16);
    addNoiseBurst(s, noise, 0.0, 0.02, 1.0);
    lowPass(s, 6000);
    addTone(s, 0.0, 320, 120, 0.025, 0.5);
    finish(s, 0.85);
    return s;
}

// A grenade hitting the ground: a metallic clink of inharmonic partials over a dull knock.
Samples grenadeBounce(Noise& noise) {
    Samples s = silence(0.14);
    addNoiseBurst(s, noise, 0.0, 0.004, 0.6);
    addTone(s, 0.0, 2150, 2150, 0.03, 0.35);
    addTone(s, 0.0, 3420, 3420, 0.02, 0.25);
    addTone(s, 0.0, 5230, 5230, 0.012, 0.15);
    addTone(s, 0.0, 140, 90, 0.02, 0.5);
    finish(s, 0.7);
    return s;
}

// An explosion: a dark rumble of filtered noise under a falling boom.
Samples explosion(Noise& noise) {
    Samples s = silence(1.1);
    addNoiseBurst(s, noise, 0.0, 0.28, 1.0);
    lowPass(s, 700);
    lowPass(s, 900);
    addTone(s, 0.0, 90, 30, 0.25, 0.9);
    addNoiseBurst(s, noise, 0.0, 0.015, 0.3);
    finish(s, 0.95);
    return s;
}

// A reload: the magazine's click, the slide of the bolt, and its snap home.
Samples reload(Noise& noise) {
    Samples s = silence(0.42);
    addNoiseBurst(s, noise, 0.0, 0.006, 0.8);
    addTone(s, 0.0, 1800, 1800, 0.01, 0.3);
    Samples slide = silence(0.42);
    for (size_t i = static_cast<size_t>(0.12 * kSampleRate); i < static_cast<size_t>(0.26 * kSampleRate);
         i++) {
        slide[i] = 0.18 * noise.next();
    }
    lowPass(slide, 2500);
    for (size_t i = 0; i < s.size(); i++) {
        s[i] += slide[i];
    }
    addNoiseBurst(s, noise, 0.27, 0.008, 1.0);
    addTone(s, 0.27, 1200, 900, 0.015, 0.4);
    finish(s, 0.75);
    return s;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        fprintf(stderr, "usage: soundgen OUTPUT_FOLDER\n");
        return 2;
    }
    std::string folder = argv[1];
    Noise noise;
    bool ok = writeWav(folder + "/m4a1_unsil-1.wav", rifleShot(noise)) &&
              writeWav(folder + "/p228-1.wav", pistolShot(noise)) &&
              writeWav(folder + "/he_bounce-1.wav", grenadeBounce(noise)) &&
              writeWav(folder + "/explode3.wav", explosion(noise)) &&
              writeWav(folder + "/generic_reload.wav", reload(noise));
    return ok ? 0 : 1;
}
