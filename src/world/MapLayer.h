#pragma once

namespace Grevan {

// The layer a map file gives each piece. It is stored and never read back: drawing order is
// registration order.
enum MapLayer : int { LAYER_DEFAULT = 0 };

}  // namespace Grevan
