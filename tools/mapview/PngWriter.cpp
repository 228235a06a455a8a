#include "PngWriter.h"

#include <png.h>

#include <cstddef>
#include <vector>

bool writePng(BITMAP* bitmap, const std::string& path, std::string& error, PngMask mask) {
    const bool withAlpha = mask == PNG_MASK_TRANSPARENT;
    const std::size_t channels = withAlpha ? 4 : 3;
    const std::size_t width = static_cast<std::size_t>(bitmap->w);
    std::vector<png_byte> pixels(width * static_cast<std::size_t>(bitmap->h) * channels);
    const int maskColour = bitmap_mask_color(bitmap);
    std::size_t at = 0;
    for (int y = 0; y < bitmap->h; ++y) {
        for (int x = 0; x < bitmap->w; ++x) {
            const int colour = getpixel(bitmap, x, y);
            const bool hidden = withAlpha && colour == maskColour;
            // A hidden pixel is black, so that a viewer blending its neighbours shows no magenta fringe.
            pixels[at++] = static_cast<png_byte>(hidden ? 0 : getr(colour));
            pixels[at++] = static_cast<png_byte>(hidden ? 0 : getg(colour));
            pixels[at++] = static_cast<png_byte>(hidden ? 0 : getb(colour));
            if (withAlpha) {
                pixels[at++] = static_cast<png_byte>(hidden ? 0 : 255);
            }
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(bitmap->w);
    image.height = static_cast<png_uint_32>(bitmap->h);
    image.format = withAlpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr)) {
        error = image.message;
        return false;
    }
    return true;
}
