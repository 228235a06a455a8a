#pragma once

#include <memory>
#include <string>

#include "actors/Animation.h"
#include "actors/PlayerAction.h"
#include "world/RealBody.h"

namespace Grevan {

class Weapon;

// The game's character, the user's own and every opponent: a rigid body with a role (its
// pictures), health, kill and head-shot counters, a random colour that marks it in the
// collision block map, four weapon slots and the movement and firing flags that input and
// scripts switch. Slot 0 is never used: equipment 0 means no weapon in hand.
class Player : public RealBody {
  public:
    static const int kSlotCount = 4;
    static const int kMass = 50;
    static const int kFullHealth = 100;
    static const int kHeadshotDamage = 10;  // a hit on the picture's top row
    // Action ids in a role's description: walking, whose first frame is also the standing
    // picture, and dying.
    static const int kWalkingAction = 0;
    static const int kDyingAction = 3;

    Player();
    Player(const std::string& name, const std::string& role);
    ~Player() override;

    void initialize();

    void draw(BITMAP* target, int cameraX, int cameraY) override;
    void move() override;
    // A dying player keeps its place in the world; it is never reaped.
    void die() override;
    // Players walk through blood and corpses; bumping into anything but the board ends a
    // scripted walk.
    bool collide(Object* other) override;
    Player* asPlayer() override { return this; }
    virtual void doFire();
    // One frame of walking: a step in the air, a push on the ground.
    virtual void doMove(Facing facing);
    void doJump();
    void doPlayerAction();

    // Loads "image/role/<role>/config.dat". A role without a walking action 0 is told with a
    // message and leaves the player without a picture, 0 x 0.
    void setRole(const std::string& role);
    // Stores any state; the animation follows for PLAYER_STAND, PLAYER_WALK and PLAYER_DEAD,
    // and values outside 0 to 7 draw as PLAYER_STAND.
    void act(PlayerState newState);

    void moveLeft(bool on) { walk(FACING_LEFT, on); }
    void moveRight(bool on) { walk(FACING_RIGHT, on); }
    void jump(bool on);
    // Also stops firing and jumping.
    void stopMoving();
    void fire(int x, int y);
    void holdFire() { firing = false; }
    // Points the current weapon at the world point (x, y).
    void aim(int x, int y);
    void setAction(const PlayerAction& order);
    void stopAction() { actionOn = false; }

    // A weapon already in the slot is deleted, and deselected when in hand; the new one is not
    // selected. A slot outside 0 to 3 takes nothing, and w goes.
    void setWeapon(int slot, std::unique_ptr<Weapon> w);
    Weapon* getWeapon(int slot) const;
    // The slot that equipment names, slot 0 included; null outside the slots.
    Weapon* getCurrentWeapon() const;

    // A hit at the world point (x, y): blood, damage by the row struck (10 on the top row, 0
    // on the bottom one), "OnKill" for the script when it kills. True for a head shot.
    bool hit(int x, int y, const Vector& impulse);
    // hit, crediting the shooter with a kill, and a head shot with it, when the hit kills.
    void hitBy(Player* shooter, int x, int y, const Vector& impulse);

    const std::string& getName() const { return name; }
    void setName(const std::string& n) { name = n; }
    const std::string& getRole() const { return role; }
    int getPlayerId() const { return playerId; }
    int getHealth() const { return health; }
    void setHealth(int h) { health = h; }
    bool isAlive() const { return health != 0; }
    int getDefend() const { return defend; }
    void setDefend(int d) { defend = d; }
    int getKills() const { return kills; }
    void addKills() { kills++; }
    int getHeadshots() const { return headshots; }
    void addHeadshots() { headshots++; }
    int getColor() const { return color; }
    void setColor(int c) { color = c; }
    int getEquipment() const { return equipment; }
    void setEquipment(int slot) { equipment = slot; }
    bool isFiring() const { return firing; }
    bool isJumping() const { return jumping; }
    bool isMovingLeft() const { return movingLeft; }
    bool isMovingRight() const { return movingRight; }
    bool isAnimating() const { return animating; }
    bool isPlayerActionOn() const { return actionOn; }
    PlayerState getState() const { return state; }
    const PlayerAction& getAction() const { return action; }
    int getFireX() const { return fireX; }
    int getFireY() const { return fireY; }
    int getAimX() const { return aimX; }
    int getAimY() const { return aimY; }
    Animation& getAnimation() { return animation; }

  protected:
    // The weapon in hand: slots 1 to 3 only, and only when filled.
    Weapon* weaponInHand() const;
    // The key for that direction pressed or released. Released while the other one is still
    // held, the other takes over; released alone, the player stops.
    void walk(Facing facing, bool on);
    // One frame of a scripted walk at `speed` pixels a frame towards facing.
    void walkScripted(Facing facing, float speed);

    std::string name;
    int playerId = 0;
    int health = kFullHealth;
    int defend = 0;
    int headshots = 0;
    int kills = 0;
    bool animating = false;
    int color = 0;
    int equipment = 0;
    std::string role;
    Animation animation;
    PlayerState state = PLAYER_STAND;
    bool movingLeft = false;
    bool movingRight = false;
    bool firing = false;
    bool jumping = false;
    int fireX = 0;
    int fireY = 0;
    int aimX = 0;
    int aimY = 0;
    PlayerAction action;
    bool actionOn = false;
    std::unique_ptr<Weapon> weapons[kSlotCount];
};

}  // namespace Grevan
