#include "support/Probe.h"

Probe::Probe(int x, int y, int width, int height, bool collidable) {
    setX(x);
    setY(y);
    setWidth(width);
    setHeight(height);
    setCollidable(collidable);
    show();
}

Probe::~Probe() {
    if (deleted) {
        *deleted = true;
    }
}

void Probe::move() {
    ++moves;
    Object::move();
    if (onMove) {
        onMove();
    }
}

bool Probe::collide(Grevan::Object* other) {
    offered.push_back(other);
    return onCollide ? onCollide(other) : Object::collide(other);
}
