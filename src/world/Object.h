#pragma once

#include <allegro.h>

#include <atomic>
#include <vector>

#include "world/MapLayer.h"
#include "world/OwnedBitmap.h"
#include "world/Rect.h"
#include "world/Vector.h"

namespace Grevan {

class Player;
class RealBody;

// Side codes handed to handleCollision: the side of the receiving object that touched the other.
enum CollisionSide { SIDE_RIGHT = 0, SIDE_LEFT = 1, SIDE_TOP = 2, SIDE_BOTTOM = 3 };

// The base of every thing in the world: a rectangle of pixels with a floating-point position,
// a velocity, an acceleration, an optional picture and a process-wide unique id.
class Object {
  public:
    Object();
    // Whoever stands on this object loses its footing.
    virtual ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    static constexpr int kUnlimitedLifetime = -1;

    virtual void draw(BITMAP* target, int cameraX, int cameraY);
    virtual void move();
    virtual void stop();
    virtual void die();
    // Resolves an overlap with other by moving this object out along the shallower axis.
    // Returns whether a collision counted. Contract for overrides: when the two rectangles do
    // not overlap and other is not the board this body stands on, report no collision and
    // change nothing; the block map skips such pairs without asking.
    virtual bool collide(Object* other);
    virtual void handleCollision(int side, Object* other);
    // What kind of thing this is, asked on every collision: a failing dynamic_cast compares
    // type names letter by letter, which the physics of many frames adds up to.
    virtual RealBody* asBody() { return nullptr; }
    virtual Player* asPlayer() { return nullptr; }

    // Loads a picture of the object's own; on failure the object keeps its size and picture.
    bool loadImage(const char* path);
    // Shows a picture that someone else owns and outlives the object (a level's PictureCache);
    // a null picture is a failed load, which changes nothing.
    bool showSharedImage(BITMAP* picture);

    // Whole pixels: a half is added and the sum truncated toward zero (2.5 gives 3, -0.7 gives 0).
    int getX() const { return static_cast<int>(position.x + 0.5f); }
    int getY() const { return static_cast<int>(position.y + 0.5f); }
    void setX(int x) { position.x = static_cast<float>(x); }
    void setY(int y) { position.y = static_cast<float>(y); }
    Vector getPosition() const { return position; }
    void setPosition(const Vector& p) { position = p; }
    Vector getVelocity() const { return velocity; }
    void setVelocity(const Vector& v) { velocity = v; }
    Vector getAcceleration() const { return acceleration; }
    void setAcceleration(const Vector& a) { acceleration = a; }

    int getWidth() const { return width; }
    void setWidth(int w) { width = w; }
    int getHeight() const { return height; }
    void setHeight(int h) { height = h; }
    int getLifetime() const { return lifetime; }
    void setLifetime(int frames) { lifetime = frames; }
    bool isDead() const { return dead; }
    bool isVisible() const { return visible; }
    void show() { visible = true; }
    void hide() { visible = false; }
    bool isCollidable() const { return collidable; }
    void setCollidable(bool c) { collidable = c; }
    MapLayer getLayer() const { return layer; }
    void setLayer(MapLayer l) { layer = l; }
    int getId() const { return id; }
    float getFrictionConstant() const { return frictionConstant; }
    BITMAP* getImage() const { return image; }

    // Recomputed on every call. Right and bottom are one past the picture.
    Rect* getRectangle() {
        updateRectangle();
        return &rectangle;
    }
    void updateRectangle() {
        rectangle.left = getX();
        rectangle.right = rectangle.left + width;
        rectangle.top = getY();
        rectangle.bottom = rectangle.top + height;
    }
    int getCentralX() const { return getX() + getWidth() / 2; }
    int getCentralY() const { return getY() + getHeight() / 2; }

  protected:
    BITMAP* image = nullptr;  // ownImage, or a picture shared with other objects
    int width = 0;
    int height = 0;
    bool visible = false;
    bool dead = false;
    int lifetime = kUnlimitedLifetime;  // frames
    Vector position;
    Vector velocity;
    Vector acceleration;
    bool collidable = false;
    Rect rectangle;
    float maximumSpeed = 8.0f;  // pixels per frame
    float frictionConstant = 1.0f;
    MapLayer layer = LAYER_DEFAULT;
    int id;

  private:
    friend class RealBody;

    OwnedBitmap ownImage;  // null while the picture is shared or there is none

    // Atomic: tools build worlds of their own on worker threads while the game builds its own.
    static std::atomic<int> objectIdGenerator;
    // The bodies whose board this object is, kept by RealBody::setBoard; they lose their
    // footing when this object is deleted.
    std::vector<RealBody*> standers;
};

}  // namespace Grevan
