#include "world/ObjectSystem.h"

#include <algorithm>

#include "actors/Player.h"
#include "world/BlockSystem.h"
#include "world/RealBody.h"

namespace Grevan {

ObjectSystem::ObjectSystem(BlockSystem& blockSystem) : blockSystem(blockSystem) {}

void ObjectSystem::addObject(std::unique_ptr<Object> o) {
    if (iterating) {
        pending.push(std::move(o));
        return;
    }
    objects.push_back(std::move(o));
    blockSystem.addObject(objects.back().get());
}

std::unique_ptr<Object> ObjectSystem::removeObject(Object* o) {
    if (iterating) {
        allegro_message("You should not remove Object when iterating ..");
        return nullptr;
    }
    auto entry = std::find_if(objects.begin(), objects.end(), [o](const std::unique_ptr<Object>& registered) {
        return registered.get() == o;
    });
    if (entry == objects.end()) {
        return nullptr;
    }
    std::unique_ptr<Object> removed = std::move(*entry);
    objects.erase(entry);
    return removed;
}

void ObjectSystem::moveObjects() {
    iterating = true;
    for (const std::unique_ptr<Object>& o : objects) {
        if (!o->isDead()) {
            moveObject(o.get());
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
    if (Player* player = o->asPlayer()) {
        player->setFree(true);
        player->setBoard(nullptr);
    }
    if (RealBody* body = o->asBody()) {
        body->releaseRoad();
    }
}

void ObjectSystem::drawObjects(BITMAP* target, int cameraX, int cameraY) {
    iterating = true;
    for (const std::unique_ptr<Object>& o : objects) {
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
        std::unique_ptr<Object>& o = objects[i];
        if (!o->isDead()) {
            if (kept != i) {
                objects[kept] = std::move(o);
            }
            kept++;
            continue;
        }
        blockSystem.removeObject(o.get());
        o.reset();
    }
    objects.resize(kept);
    iterating = false;
    while (!pending.empty()) {
        addObject(std::move(pending.front()));
        pending.pop();
    }
}

void ObjectSystem::cleanupObjects() {
    objects.clear();
}

std::vector<Object*> ObjectSystem::getObjects() const {
    std::vector<Object*> links;
    links.reserve(objects.size());
    for (const std::unique_ptr<Object>& o : objects) {
        links.push_back(o.get());
    }
    return links;
}

Object* ObjectSystem::getObjectById(int id) const {
    for (const std::unique_ptr<Object>& o : objects) {
        if (o->getId() == id) {
            return o.get();
        }
    }
    return nullptr;
}

}  // namespace Grevan
