#include "world/Object.h"

#include <algorithm>
#include <cstdlib>

#include "world/PictureCache.h"
#include "world/RealBody.h"

namespace Grevan {

std::atomic<int> Object::objectIdGenerator{1};

Object::Object() : id(objectIdGenerator++) {}

Object::~Object() {
    std::vector<RealBody*> bodies;
    bodies.swap(standers);
    for (RealBody* body : bodies) {
        body->setFree(true);
    }
}

void Object::draw(BITMAP* target, int cameraX, int cameraY) {
    if (image) {
        draw_sprite(target, image, getX() - cameraX, getY() - cameraY);
    }
}

void Object::move() {
    position += velocity;
    velocity += acceleration;
    float speed = velocity.getMagnitude();
    if (speed > maximumSpeed) {
        velocity *= maximumSpeed / speed;
    }
}

void Object::stop() {
    velocity.zero();
    acceleration.zero();
}

void Object::die() {
    dead = true;
}

bool Object::collide(Object* other) {
    RealBody* body = asBody();
    Rect a = *getRectangle();
    Rect b = *other->getRectangle();

    if (!a.overlaps(b)) {
        if (body && body->getBoard() == other) {
            body->setFree(true);
        }
        return false;
    }
    // A body is not pushed by what it stands on.
    if (body && body->getBoard() == other) {
        return true;
    }

    int depthTop = std::abs(a.top - b.bottom);
    int depthBottom = std::abs(a.bottom - b.top);
    int depthLeft = std::abs(a.left - b.right);
    int depthRight = std::abs(a.right - b.left);
    int vertical = std::min(depthTop, depthBottom);
    int horizontal = std::min(depthLeft, depthRight);
    // A contact of less than two pixels on either axis does not count.
    if (vertical < 2 || horizontal < 2) {
        return false;
    }

    if (vertical >= horizontal) {
        if (depthLeft >= depthRight) {
            position.x = static_cast<float>(b.left - (a.right - a.left) - 1);
            handleCollision(SIDE_RIGHT, other);
            other->handleCollision(SIDE_LEFT, this);
        } else {
            position.x = static_cast<float>(b.right + 1);
            handleCollision(SIDE_LEFT, other);
            other->handleCollision(SIDE_RIGHT, this);
        }
    } else if (depthTop >= depthBottom) {
        // A body put on top keeps one pixel of overlap; the two-pixel rule then ignores the contact.
        position.y = static_cast<float>(b.top - (a.bottom - a.top) + 1);
        handleCollision(SIDE_BOTTOM, other);
        other->handleCollision(SIDE_TOP, this);
    } else {
        position.y = static_cast<float>(b.bottom + 1);
        handleCollision(SIDE_TOP, other);
        other->handleCollision(SIDE_BOTTOM, this);
    }
    return true;
}

void Object::handleCollision(int, Object*) {}

// A picture loaded earlier is replaced; one of the object's own goes with it.
bool Object::loadImage(const char* path) {
    OwnedBitmap loaded = PictureCache::load(path);
    if (!loaded) {
        return false;
    }
    ownImage = std::move(loaded);
    image = ownImage.get();
    width = image->w;
    height = image->h;
    return true;
}

bool Object::showSharedImage(BITMAP* picture) {
    if (!picture) {
        return false;
    }
    ownImage.reset();
    image = picture;
    width = picture->w;
    height = picture->h;
    return true;
}

}  // namespace Grevan
