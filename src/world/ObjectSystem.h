#pragma once

#include <allegro.h>

#include <memory>
#include <queue>
#include <vector>

#include "world/Object.h"

namespace Grevan {

class BlockSystem;

// Owns every live world object. Once a frame it moves them, keeping the block map up to date,
// draws the visible ones in registration order and reaps the dead. Objects are created and
// destroyed while the registry walks its list (a grenade spawns an explosion inside its own move
// step), so additions during a walk wait in a queue until the end of the frame, and removals
// during a walk are refused.
class ObjectSystem {
  public:
    // The block map is used, not owned; it may still be under construction when this is built.
    explicit ObjectSystem(BlockSystem& blockSystem);
    ObjectSystem(const ObjectSystem&) = delete;
    ObjectSystem& operator=(const ObjectSystem&) = delete;

    // During a walk, o waits until the end of removeDeadObjects.
    void addObject(std::unique_ptr<Object> o);
    // Hands o back to the caller without taking it out of the block map; null when refused
    // during a walk or when o is not registered.
    std::unique_ptr<Object> removeObject(Object* o);

    // Moves every live object; an object whose rectangle changed is re-entered in the block map
    // after its collisions at the new place are resolved.
    void moveObjects();
    void drawObjects(BITMAP* target, int cameraX, int cameraY);
    // Deletes the dead, then lets in the objects added during the frame, in order of creation.
    void removeDeadObjects();
    // Deletes every object. The block map is left as it is: loading a map rebuilds it next.
    void cleanupObjects();

    // Registered objects only; those still waiting in the queue are not counted.
    int getObjectCount() const { return static_cast<int>(objects.size()); }
    Object* getObjectById(int id) const;
    // The registered objects in order of registration, as links.
    std::vector<Object*> getObjects() const;

  private:
    void moveObject(Object* o);
    // An object that moved and touches nothing at its new place carries nobody any more.
    void letGo(Object* o);

    BlockSystem& blockSystem;
    std::vector<std::unique_ptr<Object>> objects;  // in order of registration
    bool iterating = false;
    std::queue<std::unique_ptr<Object>> pending;  // added during a walk
};

}  // namespace Grevan
