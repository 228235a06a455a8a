#pragma once

namespace Grevan {

// A place for shared opponent logic; every opponent decides for itself and it does nothing.
class AISystem {};

}  // namespace Grevan
