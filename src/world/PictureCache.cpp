#include "world/PictureCache.h"

namespace Grevan {

BITMAP* PictureCache::get(const std::string& path) {
    auto known = pictures.find(path);
    if (known == pictures.end()) {
        known = pictures.emplace(path, load(path.c_str())).first;
    }
    return known->second.get();
}

void PictureCache::clear() {
    pictures.clear();
}

OwnedBitmap PictureCache::load(const char* path) {
    OwnedBitmap picture(load_bitmap(path, nullptr));
    if (!picture) {
        allegro_message("Failed to load bitmap %s", path);
    }
    return picture;
}

}  // namespace Grevan
