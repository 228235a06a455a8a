#pragma once

#include <cstdint>

namespace Grevan {

// A small random source of our own (xorshift), so that the generator draws the same pictures
// on every machine and a regenerated file differs only where the drawing code changed.
class ArtRandom {
  public:
    explicit ArtRandom(uint32_t seed);

    // A number from 0 to limit - 1; limit must be positive.
    int below(int limit);
    // A number from low to high, both included.
    int between(int low, int high);
    // True about perMille times in a thousand.
    bool chance(int perMille);

  private:
    uint32_t next();

    uint32_t state;
};

}  // namespace Grevan
