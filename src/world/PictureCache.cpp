#include "world/PictureCache.h"

namespace Grevan {

BITMAP* PictureCache::get(const std::string& path) {
    auto known = pictures.find(path);
    if (known == pictures.end()) {
        OwnedBitmap picture = report == FailureReport::QUIET ? OwnedBitmap(load_bitmap(path.c_str(), nullptr))
                                                             : load(path.c_str());
        known = pictures.emplace(path, std::move(picture)).first;
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
