#pragma once

#include "world/RealBody.h"

namespace Grevan {

// A gift box the script drops into the level. When the main player touches it, the script hears
// "OnPresent" with the box's id and position, the main player halts and the box vanishes; what
// the gift is worth is the script's business.
class PresentBox : public RealBody {
  public:
    PresentBox();
    ~PresentBox() override = default;

    // Only the main player has any effect; the rigid-body response (landing, bouncing) never
    // takes place, so a box neither rests on nor pushes back at what it meets.
    void handleCollision(int side, Object* other) override;
};

}  // namespace Grevan
