#include "MapPreview.h"

BitmapPtr MapPreview::renderLevel(bool outlines) {
    Grevan::MapSystem& map = game.getMapSystem();
    return render(0, 0, map.getWidth(), map.getHeight(), outlines);
}

BitmapPtr MapPreview::renderScreen(int x, int y, bool outlines) {
    return render(x, y, kScreenWidth, kScreenHeight, outlines);
}

BitmapPtr MapPreview::render(int x, int y, int width, int height, bool outlines) {
    BitmapPtr picture(create_bitmap(width, height));
    if (!picture) {
        return picture;
    }
    Grevan::MapSystem& map = game.getMapSystem();
    map.setClientWidth(width);
    map.setClientHeight(height);
    map.setClientX(x);
    map.setClientY(y);
    map.draw(picture.get());
    game.getObjectSystem().drawObjects(picture.get(), x, y);
    BITMAP* blockMap = game.getBlockSystem().getBlockMap();
    if (outlines && blockMap) {
        // The block map is black where nothing collides; every other pixel is an outline.
        const int colour = outlineColour();
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                const int pixel = getpixel(blockMap, x + column, y + row);
                if (pixel > 0) {
                    putpixel(picture.get(), column, row, colour);
                }
            }
        }
    }
    return picture;
}
