#include <algorithm>
#include <cmath>

#include "actors/Blood.h"
#include "actors/Player.h"
#include "actors/Weapon.h"

// The per-frame life of a player: turning its flags into motion, jumps and shots, drawing it
// and meeting other objects.
namespace Grevan {

namespace {
const float kWalkMomentum = 10.0f;      // per frame on the ground; 0.2 pixels per frame for mass 50
const float kAirStep = 1.0f;            // pixels per frame of steering in the air
const float kJumpMomentum = 300.0f;     // 6 pixels per frame upward for mass 50
const float kScriptedWalkSpeed = 3.0f;  // pixels per frame
}  // namespace

void Player::move() {
    if (animating) {
        animation.nextFrame();
        // The collision box follows the picture.
        setWidth(animation.getFrameWidth());
        setHeight(animation.getFrameHeight());
    }
    if (isAlive()) {
        if (state == PLAYER_WALK) {
            doMove(animation.getDirection() == FACING_LEFT ? FACING_LEFT : FACING_RIGHT);
        }
        // Held, the jump repeats on every landing; it never starts in the air.
        if (jumping && !isFree()) {
            doJump();
        }
        if (firing) {
            doFire();
        }
        if (actionOn) {
            doPlayerAction();
        }
    }
    // A dead player's weapon still counts down its cool-down and reload.
    if (Weapon* w = weaponInHand()) {
        w->move();
    }
    RealBody::move();
}

void Player::doMove(Facing facing) {
    const float sign = static_cast<float>(signOf(facing));
    if (isFree()) {
        position.x += sign * kAirStep;
    } else {
        addMomentum(Vector(sign * kWalkMomentum, 0.0f));
    }
}

void Player::doJump() {
    addMomentum(Vector(0.0f, -kJumpMomentum));
}

void Player::doFire() {
    if (Weapon* w = weaponInHand()) {
        w->fire(fireX, fireY);
    }
}

void Player::doPlayerAction() {
    if (action.type != ACTION_MOVE_TO) {
        return;
    }
    float px = position.x;
    float tx = static_cast<float>(action.x);
    if (std::fabs(px - tx) < 1.0f) {
        actionOn = false;
        return;
    }
    // Full speed until the last 3 pixels, which close at the remaining distance.
    walkScripted(tx <= px ? FACING_LEFT : FACING_RIGHT, std::min(kScriptedWalkSpeed, std::fabs(px - tx)));
}

void Player::walkScripted(Facing facing, float speed) {
    velocity.x = static_cast<float>(signOf(facing)) * speed;
    // The walking picture starts only when nothing animates yet; the state stays as it is.
    if (!animating) {
        animation.setDirection(facing);
        animating = true;
        animation.setAction(kWalkingAction, true);
    }
}

void Player::draw(BITMAP* target, int cameraX, int cameraY) {
    animation.draw(target, getX() - cameraX, getY() - cameraY);
    if (!isAlive()) {
        return;
    }
    if (Weapon* w = weaponInHand()) {
        w->draw(target, getCentralX() - cameraX, getCentralY() - cameraY);
    }
}

bool Player::collide(Object* other) {
    // Blood is a body: the pieces of the level, most of what a player touches, skip the cast.
    if (other->asBody() && dynamic_cast<Blood*>(other)) {
        return false;
    }
    Player* otherPlayer = other->asPlayer();
    if (otherPlayer && !otherPlayer->isAlive()) {
        return false;
    }
    bool collided = RealBody::collide(other);
    if (collided && other != getBoard() && actionOn) {
        actionOn = false;
    }
    return collided;
}

}  // namespace Grevan
