#include "world/Vector.h"

#include <cmath>

namespace {
const double kSnapLimit = 0.1;

float snap(float component) {
    return std::fabs(component) < kSnapLimit ? 0.0f : component;
}
}  // namespace

void Vector::zero() {
    x = y = 0.0f;
}

float Vector::getMagnitude() const {
    return sqrtf(x * x + y * y);
}

Vector Vector::normalized() const {
    float magnitude = getMagnitude();
    if (magnitude == 0.0f) {
        return Vector();
    }
    return Vector(x / magnitude, y / magnitude);
}

Vector Vector::operator+(const Vector& other) const {
    return Vector(snap(x + other.x), snap(y + other.y));
}

Vector& Vector::operator+=(const Vector& other) {
    *this = *this + other;
    return *this;
}

Vector& Vector::operator*=(float k) {
    x *= k;
    y *= k;
    return *this;
}
