#include "ArtRandom.h"

namespace Grevan {

ArtRandom::ArtRandom(uint32_t seed) : state(seed ? seed : 0x9e3779b9u) {}

uint32_t ArtRandom::next() {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return state;
}

int ArtRandom::below(int limit) {
    return static_cast<int>(next() % static_cast<uint32_t>(limit));
}

int ArtRandom::between(int low, int high) {
    return low + below(high - low + 1);
}

bool ArtRandom::chance(int perMille) {
    return below(1000) < perMille;
}

}  // namespace Grevan
