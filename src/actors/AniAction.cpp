#include "actors/AniAction.h"

namespace Grevan {

AniAction::~AniAction() {
    // Sub-bitmaps first: they point into the strip's memory.
    for (BITMAP* f : frames) {
        if (f) {
            destroy_bitmap(f);
        }
    }
    if (bitmap) {
        destroy_bitmap(bitmap);
    }
}

}  // namespace Grevan
