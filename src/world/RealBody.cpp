#include "world/RealBody.h"

#include <algorithm>
#include <cmath>

namespace Grevan {

namespace {
// Links are kept one entry per event, so undoing one event takes out exactly one entry.
void eraseOne(std::vector<RealBody*>& links, RealBody* body) {
    auto entry = std::find(links.begin(), links.end(), body);
    if (entry != links.end()) {
        links.erase(entry);
    }
}
}  // namespace

RealBody::RealBody() {
    collidable = true;
}

RealBody::~RealBody() {
    releaseRoad();
    for (RealBody* carrier : carriers) {
        eraseOne(carrier->road, this);
    }
    setBoard(nullptr);
}

void RealBody::addForce(const Vector& force) {
    acceleration += Vector(force.x / static_cast<float>(mass), force.y / static_cast<float>(mass));
}

void RealBody::addMomentum(const Vector& momentum) {
    velocity += Vector(momentum.x / static_cast<float>(mass), momentum.y / static_cast<float>(mass));
}

void RealBody::setFree(bool b) {
    free = b;
    if (b) {
        setBoard(nullptr);
    }
}

void RealBody::setBoard(Object* b) {
    if (board == b) {
        return;
    }
    if (board) {
        eraseOne(board->standers, this);
    }
    board = b;
    if (b) {
        b->standers.push_back(this);
    }
}

void RealBody::releaseRoad() {
    std::vector<RealBody*> riders;
    riders.swap(road);
    for (RealBody* rider : riders) {
        rider->setFree(true);
        eraseOne(rider->carriers, this);
    }
}

void RealBody::move() {
    Object::move();
    if (free && !board) {
        // Gravity is set, not added: any other acceleration of a free body is replaced.
        acceleration = Vector(0.0f, kGravity);
    }
    if (!free && board) {
        float vx = velocity.x;
        if (vx < 0.0f) {
            velocity.x = vx + std::min(std::fabs(vx), slidingFriction);
        } else if (vx > 0.0f) {
            velocity.x = vx - std::min(std::fabs(vx), slidingFriction);
        }
    }
}

void RealBody::handleCollision(int side, Object* other) {
    Vector otherVelocity = other->getVelocity();
    switch (side) {
        case SIDE_TOP:
            velocity.y = -velocity.y;
            break;
        case SIDE_RIGHT:
        case SIDE_LEFT:
            velocity.x = (otherVelocity.x + velocity.x) / kBounceDivisor;
            break;
        case SIDE_BOTTOM:
            if (bouncy && std::fabs(velocity.y) > kBounceLimit) {
                velocity.y = (otherVelocity.y + velocity.y) / kBounceDivisor;
                break;
            }
            land(other);
            break;
        default:
            break;
    }
}

void RealBody::land(Object* other) {
    velocity.y = 0.0f;
    setBoard(other);
    if (RealBody* otherBody = other->asBody()) {
        otherBody->road.push_back(this);
        carriers.push_back(otherBody);
    }
    acceleration = Vector(0.0f, 0.0f);
    free = false;
    slidingFriction = other->getFrictionConstant() * kFrictionFactor;
}

}  // namespace Grevan
