#include "world/PictureCache.h"

namespace Grevan {

PictureCache::~PictureCache() {
    clear();
}

BITMAP* PictureCache::get(const std::string& path) {
    auto known = pictures.find(path);
    if (known != pictures.end()) {
        return known->second;
    }
    BITMAP* picture = load(path.c_str());
    pictures.emplace(path, picture);
    return picture;
}

void PictureCache::clear() {
    for (auto& [path, picture] : pictures) {
        if (picture) {
            destroy_bitmap(picture);
        }
    }
    pictures.clear();
}

BITMAP* PictureCache::load(const char* path) {
    BITMAP* picture = load_bitmap(path, nullptr);
    if (!picture) {
        allegro_message("Failed to load bitmap %s", path);
    }
    return picture;
}

}  // namespace Grevan
