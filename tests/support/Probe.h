#pragma once

#include <functional>
#include <vector>

#include "world/Object.h"

// An object that records what the registry and the block map do to it: it counts its moves and
// draws, lists the objects offered to collide (deciding by onCollide, else as an Object does)
// and the sides it is told of, runs onMove inside its move, and sets *deleted when deleted.
class Probe : public Grevan::Object {
  public:
    Probe(int x, int y, int width, int height, bool collidable = true);
    ~Probe() override;

    void move() override;
    void draw(BITMAP*, int, int) override { ++draws; }
    bool collide(Grevan::Object* other) override;
    void handleCollision(int side, Grevan::Object*) override { sides.push_back(side); }

    int moves = 0;
    int draws = 0;
    std::vector<Grevan::Object*> offered;
    std::vector<int> sides;
    std::function<void()> onMove;
    std::function<bool(Grevan::Object*)> onCollide;
    bool* deleted = nullptr;
};
