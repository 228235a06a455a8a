#include "actors/Robot.h"

namespace Grevan {

Robot::Robot() {
    loadImage(kPicture);
}

}  // namespace Grevan
