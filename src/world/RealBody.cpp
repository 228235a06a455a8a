#include "world/RealBody.h"

#include <algorithm>
#include <cmath>

namespace Grevan {

RealBody::RealBody() {
    collidable = true;
}

RealBody::~RealBody() = default;

void RealBody::addForce(const Vector& force) {
    acceleration += Vector(force.x / static_cast<float>(mass), force.y / static_cast<float>(mass));
}

void RealBody::addMomentum(const Vector& momentum) {
    velocity += Vector(momentum.x / static_cast<float>(mass), momentum.y / static_cast<float>(mass));
}

void RealBody::setFree(bool b) {
    free = b;
    if (b) {
        board = nullptr;
    }
}

void RealBody::releaseRoad() {
    for (RealBody* rider : road) {
        rider->setFree(true);
    }
    road.clear();
}

void RealBody::forgetRider(RealBody* rider) {
    road.erase(std::remove(road.begin(), road.end(), rider), road.end());
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
            velocity.y = 0.0f;
            board = other;
            if (RealBody* otherBody = dynamic_cast<RealBody*>(other)) {
                otherBody->road.push_back(this);
            }
            acceleration = Vector(0.0f, 0.0f);
            free = false;
            slidingFriction = other->getFrictionConstant() * kFrictionFactor;
            break;
        default:
            break;
    }
}

}  // namespace Grevan
