#include <gtest/gtest.h>
#include <png.h>

#include <string>
#include <tuple>
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
    MapPreview preview{*game};
    const int background = makecol(10, 20, 30);
    const int fill = makecol(0, 200, 30);
    const int edge = makecol(255, 255, 255);
};

TEST_F(MapView, LevelShowsBackgroundPiecesAndOnlyTheSolidPiecesOutlinesAndAScreenStartsAtTheCamera) {
    BitmapPtr plain = preview.renderLevel(false);
    BitmapPtr outlined = preview.renderLevel(true);
    ASSERT_EQ(std::make_pair(plain->w, plain->h), std::make_pair(60, 40));
    const int outline = MapPreview::outlineColour();
    // x, y, the colour in the level without outlines, the colour with outlines: left of the solid
    // piece, its corners, inside and right of it, the decoration (no outline).
    const std::tuple<int, int, int, int> cases[] = {{0, 0, background, background},
                                                    {19, 10, background, background},
                                                    {20, 10, edge, outline},
                                                    {29, 17, fill, outline},
                                                    {25, 14, fill, fill},
                                                    {30, 14, background, background},
                                                    {40, 30, edge, edge},
                                                    {45, 35, fill, fill},
                                                    {59, 39, background, background}};
    for (auto [x, y, level, withOutlines] : cases) {
        EXPECT_EQ(getpixel(plain.get(), x, y), level) << x << ", " << y;
        EXPECT_EQ(getpixel(outlined.get(), x, y), withOutlines) << x << ", " << y;
    }
    // Past the level's right and bottom ends the screen shows the background.
    BitmapPtr screen = preview.renderScreen(20, 10, false);
    ASSERT_EQ(std::make_pair(screen->w, screen->h),
              std::make_pair(MapPreview::kScreenWidth, MapPreview::kScreenHeight));
    EXPECT_EQ(getpixel(screen.get(), 0, 0), edge);
    EXPECT_EQ(getpixel(screen.get(), 25, 25), fill);  // the decoration at (40, 30) of the level
    EXPECT_EQ(getpixel(screen.get(), 300, 300), background);
}

TEST_F(MapView, PngHoldsTheRenderedPixelsAndTheMaskOnlyWhenAskedToHideIt) {
    BitmapPtr plain = preview.renderLevel(false);
    const int mask = bitmap_mask_color(plain.get());
    putpixel(plain.get(), 59, 39, mask);
    // The pixels of a written picture as RGBA, the alpha of an RGB picture being 255.
    auto written = [&](PngMask pngMask) {
        const std::string path = folder.getPath() + "/tiny.png";
        std::string error;
        EXPECT_TRUE(writePng(plain.get(), path, error, pngMask)) << error;
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        EXPECT_TRUE(png_image_begin_read_from_file(&image, path.c_str())) << image.message;
        EXPECT_EQ(std::make_pair(image.width, image.height), std::make_pair(60u, 40u));
        image.format = PNG_FORMAT_RGBA;
        std::vector<png_byte> pixels(PNG_IMAGE_SIZE(image));
        EXPECT_TRUE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr)) << image.message;
        return pixels;
    };
    auto colourAt = [](const std::vector<png_byte>& pixels, int x, int y) {
        const std::size_t at = (static_cast<std::size_t>(y) * 60 + x) * 4;
        return std::make_pair(makecol(pixels[at], pixels[at + 1], pixels[at + 2]), int{pixels[at + 3]});
    };
    // The background at the first pixel, the solid piece's fill at (25, 14), the mask at the last.
    const std::vector<png_byte> drawn = written(PNG_MASK_DRAWN);
    EXPECT_EQ(colourAt(drawn, 0, 0), std::make_pair(background, 255));
    EXPECT_EQ(colourAt(drawn, 25, 14), std::make_pair(fill, 255));
    EXPECT_EQ(colourAt(drawn, 59, 39), std::make_pair(mask, 255));
    const std::vector<png_byte> hidden = written(PNG_MASK_TRANSPARENT);
    EXPECT_EQ(colourAt(hidden, 25, 14), std::make_pair(fill, 255));
    EXPECT_EQ(colourAt(hidden, 59, 39).second, 0);
    std::string error;
    EXPECT_FALSE(writePng(plain.get(), folder.getPath() + "/no/such/folder/x.png", error));
    EXPECT_FALSE(error.empty());
}

}  // namespace
