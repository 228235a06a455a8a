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
    // Releases the riders, leaves every riders list it is on and steps off its board.
    ~RealBody() override;

    void move() override;
    void handleCollision(int side, Object* other) override;
    RealBody* asBody() override { return this; }

    int getMass() const { return mass; }
    void setMass(int m) { mass = m; }
    void addForce(const Vector& force);
    void addMomentum(const Vector& momentum);

    bool isFree() const { return free; }
    // Setting a body free also takes it off its board.
    void setFree(bool b);
    Object* getBoard() const { return board; }
    void setBoard(Object* b);
    const std::vector<RealBody*>& getRiders() const { return road; }
    // Every rider loses its footing and falls.
    void releaseRoad();

    float getSlidingFriction() const { return slidingFriction; }
    // For tools that put a body back into a state it was in: landing is what sets it in play.
    void setSlidingFriction(float f) { slidingFriction = f; }
    bool isBouncy() const { return bouncy; }
    void setBouncy(bool b) { bouncy = b; }

  protected:
    int mass = 1;
    bool free = true;
    float slidingFriction = 0.0f;  // pixels per frame lost while standing
    bool bouncy = false;

  private:
    void land(Object* other);

    // The links below are kept in step with each other, so that a deleted body leaves no
    // pointer to itself behind: all changes go through setBoard, land and releaseRoad.
    Object* board = nullptr;      // not owned
    std::vector<RealBody*> road;  // riders, in order of landing, one entry per landing; not owned
    // The bodies whose riders list holds this body, one entry per listing. A body that walked
    // off stays listed with its old board until that board lets go of its riders.
    std::vector<RealBody*> carriers;
};

}  // namespace Grevan
