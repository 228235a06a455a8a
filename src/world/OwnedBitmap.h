#pragma once

#include <allegro.h>

#include <memory>

namespace Grevan {

// Frees an Allegro bitmap; the owner must go while Allegro is still up.
struct BitmapDeleter {
    void operator()(BITMAP* bitmap) const { destroy_bitmap(bitmap); }
};

// A bitmap with one owner.
using OwnedBitmap = std::unique_ptr<BITMAP, BitmapDeleter>;

}  // namespace Grevan
