#include "actors/Player.h"

#include <cstdlib>
#include <memory>

#include "actors/Blood.h"
#include "actors/Weapon.h"
#include "core/Game.h"
#include "world/ObjectSystem.h"

namespace Grevan {

Player::Player() {
    initialize();
}

Player::Player(const std::string& playerName, const std::string& playerRole) : Player() {
    setName(playerName);
    setRole(playerRole);
}

// Defined here, where a Weapon is a complete type that the slots can delete.
Player::~Player() = default;

void Player::initialize() {
    name = "NoName";
    playerId = rand();
    health = kFullHealth;
    headshots = 0;
    kills = 0;
    animating = false;
    // Three draws, red from the last and blue from the first; each component 0 to 254, so a
    // player is never white like the level's outlines in the block map.
    int first = rand();
    int second = rand();
    int third = rand();
    color = makecol(third % 255, second % 255, first % 255);
    if (color == 0) {
        // Black is the empty block map: a black player would be invisible to line tests.
        color = makecol(0, 0, 1);
    }
    equipment = 0;
    movingLeft = movingRight = firing = jumping = false;
    actionOn = false;
    for (std::unique_ptr<Weapon>& w : weapons) {
        w.reset();
    }
    setMass(kMass);
}

void Player::setRole(const std::string& newRole) {
    role = newRole;
    std::string path = "image/role/" + role + "/config.dat";
    animation.clear();
    animation.load(path.c_str());
    if (!animation.hasAction(kWalkingAction)) {
        allegro_message("Role %s has no picture: %s is missing or has no walking action 0.", role.c_str(),
                        path.c_str());
        // Half a role is no role: the player stays without any picture, dying included.
        animation.clear();
    }
    act(PLAYER_STAND);
    setWidth(animation.getFrameWidth());
    setHeight(animation.getFrameHeight());
}

void Player::act(PlayerState newState) {
    state = newState;
    if (newState == PLAYER_WALK) {
        animating = true;
        animation.setAction(kWalkingAction, true);
    } else if (newState == PLAYER_DEAD) {
        // The dying sequence stays on its last frame.
        animating = true;
        animation.setAction(kDyingAction, false);
    } else if (newState == PLAYER_STAND || newState < PLAYER_STAND || newState > PLAYER_LAST_STATE) {
        animating = false;
        animation.setAction(kWalkingAction);
        animation.setFrame(0);
    }
}

void Player::walk(Facing facing, bool on) {
    if (!isAlive()) {
        return;
    }
    const bool towardsLeft = facing == FACING_LEFT;
    bool& held = towardsLeft ? movingLeft : movingRight;
    const bool otherHeld = towardsLeft ? movingRight : movingLeft;
    held = on;
    if (on) {
        animation.setDirection(facing);
        act(PLAYER_WALK);
    } else if (otherHeld) {
        walk(towardsLeft ? FACING_RIGHT : FACING_LEFT, true);
    } else {
        stopMoving();
    }
}

void Player::jump(bool on) {
    jumping = on;
}

void Player::stopMoving() {
    if (!isAlive()) {
        return;
    }
    act(PLAYER_STAND);
    movingLeft = movingRight = firing = jumping = false;
}

void Player::fire(int x, int y) {
    firing = true;
    fireX = x;
    fireY = y;
}

void Player::aim(int x, int y) {
    if (!isAlive()) {
        return;
    }
    aimX = x;
    aimY = y;
    if (Weapon* w = weaponInHand()) {
        // The weapon takes the aim relative to the centre, with y pointing up.
        w->setTarget(x - getCentralX(), getCentralY() - y);
    }
}

void Player::setAction(const PlayerAction& order) {
    action = order;
    actionOn = true;
}

void Player::setWeapon(int slot, std::unique_ptr<Weapon> w) {
    if (slot < 0 || slot >= kSlotCount) {
        return;
    }
    if (weapons[slot] && equipment == slot) {
        equipment = 0;
    }
    weapons[slot] = std::move(w);
}

Weapon* Player::getWeapon(int slot) const {
    return slot >= 0 && slot < kSlotCount ? weapons[slot].get() : nullptr;
}

Weapon* Player::getCurrentWeapon() const {
    return getWeapon(equipment);
}

Weapon* Player::weaponInHand() const {
    return equipment != 0 ? getWeapon(equipment) : nullptr;
}

bool Player::hit(int x, int y, const Vector& impulse) {
    // A player without a picture has no rows to tell apart and takes no damage.
    int damage = 0;
    if (height > 0) {
        float row = static_cast<float>(y - getY()) / static_cast<float>(height);
        damage = static_cast<int>((1.0f - row) * kHeadshotDamage);
    }
    // Blood flows even from a corpse.
    ObjectSystem& objects = Game::getInstance()->getObjectSystem();
    for (int i = 0; i < damage; i++) {
        objects.addObject(std::make_unique<Blood>(x, y, impulse));
    }
    if (isAlive()) {
        health -= damage;
        if (health < 1) {
            Game::getInstance()->getScriptSystem().raise("OnKill", getId(), x, y);
            die();
        }
    }
    stopMoving();
    return damage == kHeadshotDamage;
}

void Player::hitBy(Player* shooter, int x, int y, const Vector& impulse) {
    bool wasAlive = isAlive();
    bool headshot = hit(x, y, impulse);
    // A head shot counts only when it kills.
    if (wasAlive && !isAlive() && shooter) {
        shooter->addKills();
        if (headshot) {
            shooter->addHeadshots();
        }
    }
}

void Player::die() {
    health = 0;
    act(PLAYER_DEAD);
}

}  // namespace Grevan
