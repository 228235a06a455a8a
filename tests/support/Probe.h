#pragma once

#include <functional>
#include <vector>

#include "world/Object.h"

// An object that records what the registry and the block map do to it: it counts its moves and
// draws, lists the objects offered to collide (deciding by onCollide, else as an Object does),
// runs onMove inside its move, and sets *deleted when it is deleted.
class Probe : public Grevan::Object {
  public:
    Probe(int x, int y, int width, int height, bool collidable = true);
    ~Probe() override;

    void move() override;
    void draw(BITMAP*, int, int) override { ++draws; }
    bool collide(Grevan::Object* other) override;

    int moves = 0;
    int draws = 0;
    std::vector<Grevan::Object*> offered;
    std::function<void()> onMove;
    std::function<bool(Grevan::Object*)> onCollide;
    bool* deleted = nullptr;
};
