#pragma once

#include <allegro.h>

#include <string>
#include <unordered_map>

#include "world/OwnedBitmap.h"

namespace Grevan {

// The pictures of one level, each file loaded once: every piece and gift box that names the same
// file shows the same bitmap, so memory grows with the distinct pictures, not with the objects.
// The cache owns the bitmaps; clear() destroys them and so must come after the objects showing
// them are gone, and before Allegro is.
class PictureCache {
  public:
    // Whether a picture that cannot be loaded is reported in a message box. A tool that shows the
    // failure its own way stays quiet: the box would stop it until someone dismisses it.
    enum class FailureReport { MESSAGE_BOX, QUIET };

    explicit PictureCache(FailureReport report = FailureReport::MESSAGE_BOX) : report(report) {}
    PictureCache(const PictureCache&) = delete;
    PictureCache& operator=(const PictureCache&) = delete;

    // The file's picture, loaded on the first request. A file that cannot be loaded gives null
    // every time, with the message on the first request only.
    BITMAP* get(const std::string& path);
    void clear();
    // Distinct files requested since the last clear, loaded or not.
    int getCount() const { return static_cast<int>(pictures.size()); }

    // A picture for the caller to own; on failure the message "Failed to load bitmap PATH" and null.
    static OwnedBitmap load(const char* path);

  private:
    FailureReport report;
    std::unordered_map<std::string, OwnedBitmap> pictures;  // null for a file that could not be loaded
};

}  // namespace Grevan
