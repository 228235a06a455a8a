#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "ReachInput.h"
#include "ReachLevel.h"

namespace Grevan {
class Player;
}

// How far a search goes and how finely it tells the player's states apart. States whose
// position and speed round to the same steps, with the same footing (and, on the ground, the same
// keys), share a key: of those, the first found is followed, and after it only one that lies
// farther left or right, or moves faster either way, than all followed so far by the margins.
// The defaults keep the fortress within a second on one core (bench/ReachBenchmark.cpp).
struct ReachBounds {
    float positionStep = 16.0f;   // pixels
    float speedStep = 1.0f;       // pixels per frame, across
    float fallStep = 2.0f;        // pixels per frame, up and down
    float positionMargin = 6.0f;  // pixels: a state of a key seen farther out is followed too
    float speedMargin = 0.2f;     // pixels per frame: and one faster either way, on the ground
    float airSpeedMargin = 1.0f;  // pixels per frame: likewise in the air
    int stayLimit = 64;           // frames followed within one step of rounding with the same keys
    int frameLimit = 4000;        // frames from the start, about a minute of play
    int stateLimit = 3000000;     // states kept, about 200 MB
};

// What a search found for one span: reachable with the inputs that put the player on it, or not.
struct ReachSpanResult {
    ReachSpan span;
    bool reachable = false;
    ReachWitness witness;  // empty when not reachable
};

struct ReachResult {
    ReachPoint start;                    // the feet
    std::vector<ReachSpanResult> spans;  // in the level's order of spans
    int states = 0;                      // distinct states visited
    int frames = 0;                      // the deepest frame searched
    bool bounded = false;                // a frame or state limit cut the search short
    bool cancelled = false;
};

// Which surfaces of a level a player can stand on from a start point, found by playing the
// game's own player physics frame by frame in a world of its own (ReachWorld). The search is
// breadth-first over the states after each frame, trying every input that can make a difference:
// on the ground any direction or none, with the jump key pressed or not; in the air any
// direction or none with the jump key released (pressed in the air, it only jumps on landing,
// which pressing it on the frame after landing does the same). So the first witness found for a
// span is the shortest in frames among the states the rounding keeps apart.
//
// Where a "no" can be wrong: a state merged with one found before it (ReachBounds) is not
// followed, though its exact figures might have led elsewhere; within one step of rounding the
// keys change only as long as the player stays there (stayLimit); and the limits of frames and
// states end the search (the result says when they did). Every "yes" carries its witness, which
// replays in the game.
class ReachAnalysis {
  public:
    // The player wears the role's pictures (image/role/ROLE/config.dat, from the game's working
    // directory), which give its size; they are loaded here, on the caller's thread.
    explicit ReachAnalysis(const std::string& role = "soldier");
    ~ReachAnalysis();
    ReachAnalysis(const ReachAnalysis&) = delete;
    ReachAnalysis& operator=(const ReachAnalysis&) = delete;

    // Searches from a player whose feet are at (x, y). Safe to call from a worker thread, one
    // call at a time per analysis; setting cancel ends it early with what was found so far.
    ReachResult run(const ReachLevel& level, ReachPoint start, const std::atomic<bool>& cancel);
    ReachResult run(const ReachLevel& level, ReachPoint start);
    // The feet's positions after each frame of the witness played from start, for drawing.
    std::vector<ReachPoint> trace(const ReachLevel& level, ReachPoint start, const ReachWitness& witness);

    ReachBounds bounds;

  private:
    struct Scratch;

    std::unique_ptr<Grevan::Player> player;  // lent to each search's world
    std::unique_ptr<Scratch> scratch;
};
