#pragma once

#include <allegro.h>

#include <string>
#include <vector>

#include "world/OwnedBitmap.h"

class EditorView;

// The column of every picture in image/object/, each a thumbnail with its name, scrolled by rows.
// One of them may be chosen: the picture the next click in the level places.
class PicturePalette {
  public:
    static constexpr int kWidth = 160;     // pixels
    static constexpr int kRowHeight = 52;  // pixels

    // Lists the pictures of the folder, by name.
    explicit PicturePalette(const std::string& folder);

    const std::vector<std::string>& getNames() const { return names; }
    // The row at a height within the palette, or -1 below the last.
    int rowAt(int y) const;
    void scrollBy(int rows, int visibleRows);
    // Makes the picture chosen and scrolls it into view; an unknown name chooses nothing.
    void choose(const std::string& name, int visibleRows);
    void clearChoice() { chosen.clear(); }
    const std::string& getChosen() const { return chosen; }

    void draw(BITMAP* target, EditorView& view);

  private:
    BITMAP* thumbnail(size_t row, EditorView& view);

    std::vector<std::string> names;
    std::vector<Grevan::OwnedBitmap> thumbnails;  // made when first shown
    std::string chosen;
    int firstRow = 0;
};
