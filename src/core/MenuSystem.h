#pragma once

namespace Grevan {

// A place for menus; the game starts straight into its script and it does nothing.
class MenuSystem {};

}  // namespace Grevan
