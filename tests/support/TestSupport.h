#pragma once

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "scripting/ScriptSystem.h"
#include "world/BlockSystem.h"
#include "world/ObjectSystem.h"
#include "world/RealBody.h"

namespace GrevanTest {

// A rigid body of the given rectangle, without a picture.
Grevan::RealBody* makeBody(int x, int y, int width, int height);

// Whether both components of the vector are within 1e-4 of the expected ones.
testing::AssertionResult isNear(const Vector& v, const Vector& expected);

// The cells (row, column) of the block map that hold the object, in row-major order.
using Cells = std::vector<std::pair<unsigned, unsigned>>;
Cells cellsHolding(const Grevan::BlockSystem& blocks, Grevan::Object* o);

// The registered objects of one kind, in order of registration.
template <typename Kind>
std::vector<Kind*> objectsOf(const Grevan::ObjectSystem& objects) {
    std::vector<Kind*> found;
    for (Grevan::Object* o : objects.getObjects()) {
        if (Kind* k = dynamic_cast<Kind*>(o)) {
            found.push_back(k);
        }
    }
    return found;
}

// Everything written to standard output while `body` runs.
template <typename Body>
std::string printedBy(Body body) {
    testing::internal::CaptureStdout();
    body();
    fflush(stdout);
    return testing::internal::GetCapturedStdout();
}

// Pixels of the colour within the rectangle (edges inclusive, clipped to the bitmap).
int pixelsOf(BITMAP* b, int colour, int left = 0, int top = 0, int right = INT_MAX, int bottom = INT_MAX);
// What a pixel of the colour becomes when drawn at the alpha over the background colour, as the
// half-transparent overlays of the game are drawn.
int blendedOver(int background, int colour, int alpha = 200);
// Pixels at which two bitmaps of one size differ.
int differingPixels(BITMAP* a, BITMAP* b);

// Takes the oldest queued script event and tells it as "name text arg1 arg2 arg3", or "none".
std::string takeEvent(Grevan::ScriptSystem& scripts);

}  // namespace GrevanTest
