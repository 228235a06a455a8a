#include "world/ObjectSystem.h"

#include <algorithm>

#include "actors/Player.h"
#include "world/BlockSystem.h"
#include "world/RealBody.h"

namespace Grevan {

ObjectSystem::ObjectSystem(BlockSystem& blockSystem) : blockSystem(blockSystem) {}

void ObjectSystem::addObject(Object* o) {
    if (iterating) {
        pending.push(o);
        return;
    }
    objects.push_back(o);
    blockSystem.addObject(o);
}

bool ObjectSystem::removeObject(Object* o) {
    if (iterating) {
        allegro_message("You should not remove Object when iterating ..");
        return false;
    }
    auto entry = std::find(objects.begin(), objects.end(), o);
    if (entry == objects.end()) {
        return false;
    }
    objects.erase(entry);
    return true;
}

void ObjectSystem::moveObjects() {
    iterating = true;
    for (Object* o : objects) {
        if (!o->isDead()) {
            moveObject(o);
        }
    }
    iterating = false;
}

void ObjectSystem::moveObject(Object* o) {
    const Rect old = *o->getRectangle();
    o->move();
    const Rect& now = *o->getRectangle();
    // Objects that did not move, or cannot collide, are not checked at all.
    if (!o->isCollidable() || old == now) {
        return;
    }
    blockSystem.removeObject(o, old.left, old.top, old.right, old.bottom);
    if (!blockSystem.checkCollision(o)) {
        letGo(o);
    }
    blockSystem.addObject(o);
}

void ObjectSystem::letGo(Object* o) {
    // A player that touches nothing stands on nothing.
    if (Player* player = dynamic_cast<Player*>(o)) {
        player->setFree(true);
        player->setBoard(nullptr);
    }
    if (RealBody* body = dynamic_cast<RealBody*>(o)) {
        body->releaseRoad();
    }
}

void ObjectSystem::drawObjects(BITMAP* target, int cameraX, int cameraY) {
    iterating = true;
    for (Object* o : objects) {
        if (o->isVisible()) {
            o->draw(target, cameraX, cameraY);
        }
    }
    iterating = false;
}

void ObjectSystem::removeDeadObjects() {
    iterating = true;
    // The survivors close up in order as the dead are taken out.
    size_t kept = 0;
    for (size_t i = 0; i < objects.size(); ++i) {
        Object* o = objects[i];
        if (!o->isDead()) {
            objects[kept++] = o;
            continue;
        }
        blockSystem.removeObject(o);
        delete o;
    }
    objects.resize(kept);
    iterating = false;
    while (!pending.empty()) {
        addObject(pending.front());
        pending.pop();
    }
}

void ObjectSystem::cleanupObjects() {
    for (Object* o : objects) {
        delete o;
    }
    objects.clear();
}

Object* ObjectSystem::getObjectById(int id) const {
    for (Object* o : objects) {
        if (o->getId() == id) {
            return o;
        }
    }
    return nullptr;
}

}  // namespace Grevan
