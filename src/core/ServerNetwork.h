#pragma once

namespace Grevan {

// A place for a network server; the game plays alone and it does nothing.
class ServerNetwork {};

}  // namespace Grevan
