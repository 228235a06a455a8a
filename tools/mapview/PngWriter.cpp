#include "PngWriter.h"

#include <png.h>

#include <cstddef>
#include <vector>

bool writePng(BITMAP* bitmap, const std::string& path, std::string& error) {
    const std::size_t width = static_cast<std::size_t>(bitmap->w);
    std::vector<png_byte> pixels(width * static_cast<std::size_t>(bitmap->h) * 3);
    std::size_t at = 0;
    for (int y = 0; y < bitmap->h; ++y) {
        for (int x = 0; x < bitmap->w; ++x) {
            const int colour = getpixel(bitmap, x, y);
            pixels[at++] = static_cast<png_byte>(getr(colour));
            pixels[at++] = static_cast<png_byte>(getg(colour));
            pixels[at++] = static_cast<png_byte>(getb(colour));
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(bitmap->w);
    image.height = static_cast<png_uint_32>(bitmap->h);
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr)) {
        error = image.message;
        return false;
    }
    return true;
}
