#pragma once

#include "world/Object.h"

namespace Grevan {

// The guide figure: a plain object with its picture. Game owns it outside the object registry
// and draws it in screen coordinates while it is shown.
class Robot : public Object {
  public:
    static constexpr const char* kPicture = "./image/gui/ib.bmp";

    Robot();
    ~Robot() override = default;
};

}  // namespace Grevan
