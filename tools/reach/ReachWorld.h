#pragma once

#include <memory>
#include <vector>

#include "ReachInput.h"
#include "ReachLevel.h"
#include "actors/Player.h"
#include "world/BlockSystem.h"
#include "world/ObjectSystem.h"

// Everything about a player between two frames that its next frames depend on: the body's
// motion and footing, and the keys held with the jump they may have armed.
struct ReachState {
    Vector position;
    Vector velocity;
    Vector acceleration;
    Grevan::Object* board = nullptr;  // a piece of the world it was taken in
    bool free = true;
    float slidingFriction = 0.0f;
    ReachInput held;
    bool jumping = false;
};

// A level of its own with one player in it, moved by the game's own object registry, block map,
// rigid body and player code, and nothing else: no opponents, bullets, gift boxes or script.
// Its state can be taken and put back, so that a search can try every input from a state
// without playing the frames before it again. The block map's grid is there, its picture of
// outlines is not: nothing here asks a line query. After restore() the player is filed under the
// cells of its restored rectangle, or under none, as the step's move expects to take it out of them. Touches
// no file and no global state of the game: a worker thread may run it while Allegro draws elsewhere.
class ReachWorld {
  public:
    // The player is lent for the world's lifetime; release() gives it back.
    ReachWorld(const ReachLevel& level, std::unique_ptr<Grevan::Player> player);
    ~ReachWorld();
    ReachWorld(const ReachWorld&) = delete;
    ReachWorld& operator=(const ReachWorld&) = delete;

    std::unique_ptr<Grevan::Player> release();

    // A player at rest in the air with nothing held, its feet at (x, y).
    ReachState startAt(int feetX, int feetY) const;
    ReachState capture() const;
    void restore(const ReachState& state);
    // One frame of the game's world step, the keys changed to input before it.
    void step(ReachInput input);

    const Grevan::Player& getPlayer() const { return *player; }
    // The spans a body stands on, at rest on something and not falling, with its feet's row on
    // theirs and a pixel of its width over them; none while it is in the air.
    template <typename Visit>
    static void forSpansStoodOn(const ReachLevel& level, const Grevan::RealBody& body, Visit visit) {
        if (!body.isFree() && body.getBoard()) {
            level.forSpansUnder(body.getX(), body.getX() + body.getWidth() - 1, feetY(body), visit);
        }
    }

    // The feet: the middle of the bottom row of a body's picture.
    static int feetX(const Grevan::Object& body) { return body.getX() + body.getWidth() / 2; }
    static int feetY(const Grevan::Object& body) { return body.getY() + body.getHeight() - 1; }
    // Where a body's top-left corner goes for its feet to be at (x, y).
    static Vector cornerForFeet(const Grevan::Object& body, int x, int y) {
        return Vector(static_cast<float>(x - body.getWidth() / 2),
                      static_cast<float>(y - body.getHeight() + 1));
    }

  private:
    Grevan::BlockSystem blocks;
    Grevan::ObjectSystem objects{blocks};
    std::vector<std::unique_ptr<Grevan::Object>> pieces;
    Grevan::Player* player = nullptr;  // owned by objects until released
    ReachInput held;
};
