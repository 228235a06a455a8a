#pragma once

#include <vector>

#include "world/Object.h"

namespace Grevan {

// An object with mass that falls under gravity, lands on other objects and stands on them,
// slides to rest with friction taken from what it stands on, bounces off ceilings and walls,
// and carries the bodies that stand on it (its riders).
class RealBody : public Object {
  public:
    static constexpr float kGravity = 0.12f;         // pixels per frame per frame
    static constexpr float kFrictionFactor = 0.12f;  // share of the board's friction constant
    static constexpr float kBounceLimit = 1.0f;      // pixels per frame; faster landings bounce
    static constexpr float kBounceDivisor = -2.0f;

    RealBody();
    ~RealBody() override;

    void move() override;
    void handleCollision(int side, Object* other) override;

    int getMass() const { return mass; }
    void setMass(int m) { mass = m; }
    void addForce(const Vector& force);
    void addMomentum(const Vector& momentum);

    bool isFree() const { return free; }
    void setFree(bool b);
    Object* getBoard() const { return board; }
    void setBoard(Object* b) { board = b; }
    const std::vector<RealBody*>& getRiders() const { return road; }
    // Every rider loses its footing and falls.
    void releaseRoad();
    // Forgets a rider without touching it (used when the rider is deleted).
    void forgetRider(RealBody* rider);

    float getSlidingFriction() const { return slidingFriction; }
    bool isBouncy() const { return bouncy; }
    void setBouncy(bool b) { bouncy = b; }

  protected:
    int mass = 1;
    bool free = true;
    Object* board = nullptr;       // not owned
    std::vector<RealBody*> road;   // riders, in order of landing; not owned
    float slidingFriction = 0.0f;  // pixels per frame lost while standing
    bool bouncy = false;
};

}  // namespace Grevan
