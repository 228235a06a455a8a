#pragma once

// A 2D vector of floats: positions in world pixels, velocities in pixels per frame,
// accelerations in pixels per frame per frame.
class Vector {
  public:
    Vector() = default;
    Vector(float x, float y) : x(x), y(y) {}

    void zero();
    float getMagnitude() const;
    Vector normalized() const;

    // Components that end up below 0.1 in magnitude snap to exactly 0: this is what brings
    // slowly sliding bodies to rest.
    Vector operator+(const Vector& other) const;
    Vector& operator+=(const Vector& other);
    Vector& operator*=(float k);

    float x = 0.0f;
    float y = 0.0f;
};
