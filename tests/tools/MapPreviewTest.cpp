#include <gtest/gtest.h>
#include <png.h>

#include <string>
#include <vector>

#include "MapPreview.h"
#include "PngWriter.h"
#include "support/HeadlessGame.h"
#include "support/TestFolder.h"

namespace {

// A level of 60 x 40 on a dark blue background: a solid piece of 10 x 8 at (20, 10) and a
// decoration of 6 x 6 at (40, 30), both from strips whose frame is green with a white left column.
class MapView : public HeadlessGame {
  protected:
    MapView() {
        folder.writeStrip("solid.bmp", 10, 8, 1);
        folder.writeStrip("decor.bmp", 6, 6, 1);
        const std::string map = folder.writeFile(
            "tiny.map", "0 60 40 10 20 30 2\n" + folder.reachFrom("image/object", "solid.bmp") +
                            " 0 0 20 10 0 0 0 0\n" + folder.reachFrom("image/object", "decor.bmp") +
                            " 1 1 40 30 0 0 0 0\n");
        game->loadMap(map.c_str());
    }

    TestFolder folder;
    const int background = makecol(10, 20, 30);
    const int fill = makecol(0, 200, 30);
    const int edge = makecol(255, 255, 255);
    const int outline = MapPreview::outlineColour();
};

struct PixelCase {
    int x;
    int y;
    int level;     // colour in the level without outlines
    int outlined;  // colour with outlines
};

TEST_F(MapView, LevelShowsBackgroundPiecesAndOnlyTheSolidPiecesOutlinesAndAScreenStartsAtTheCamera) {
    MapPreview preview(*game);
    BitmapPtr plain = preview.renderLevel(false);
    BitmapPtr outlined = preview.renderLevel(true);
    ASSERT_EQ(plain->w, 60);
    ASSERT_EQ(plain->h, 40);
    const std::vector<PixelCase> cases = {
        {0, 0, background, background},
        {19, 10, background, background},  // left of the solid piece
        {20, 10, edge, outline},
        {29, 17, fill, outline},  // its corners
        {25, 14, fill, fill},
        {30, 14, background, background},  // inside, and just right of it
        {40, 30, edge, edge},
        {45, 35, fill, fill},  // the decoration: no outline
        {59, 39, background, background},
    };
    for (const PixelCase& c : cases) {
        EXPECT_EQ(getpixel(plain.get(), c.x, c.y), c.level) << c.x << ", " << c.y;
        EXPECT_EQ(getpixel(outlined.get(), c.x, c.y), c.outlined) << c.x << ", " << c.y;
    }
    // Past the level's right and bottom ends the screen shows the background.
    BitmapPtr screen = preview.renderScreen(20, 10, false);
    ASSERT_EQ(screen->w, MapPreview::kScreenWidth);
    ASSERT_EQ(screen->h, MapPreview::kScreenHeight);
    EXPECT_EQ(getpixel(screen.get(), 0, 0), edge);
    EXPECT_EQ(getpixel(screen.get(), 25, 25), fill);  // the decoration at (40, 30) of the level
    EXPECT_EQ(getpixel(screen.get(), 300, 300), background);
}

TEST_F(MapView, PngHoldsTheRenderedPixels) {
    MapPreview preview(*game);
    BitmapPtr plain = preview.renderLevel(false);
    const std::string path = folder.getPath() + "/tiny.png";
    std::string error;
    ASSERT_TRUE(writePng(plain.get(), path, error)) << error;

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&image, path.c_str())) << image.message;
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> pixels(PNG_IMAGE_SIZE(image));
    ASSERT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
    ASSERT_EQ(image.width, 60u);
    ASSERT_EQ(image.height, 40u);
    auto rgb = [&](int x, int y) {
        const png_byte* p = &pixels[(static_cast<std::size_t>(y) * 60 + static_cast<std::size_t>(x)) * 3];
        return makecol(p[0], p[1], p[2]);
    };
    EXPECT_EQ(rgb(0, 0), background);
    EXPECT_EQ(rgb(25, 14), fill);
    EXPECT_EQ(rgb(20, 10), edge);

    EXPECT_FALSE(writePng(plain.get(), folder.getPath() + "/no/such/folder/x.png", error));
    EXPECT_FALSE(error.empty());
}

}  // namespace
