#include "Painter.h"

#include <algorithm>
#include <cmath>

namespace Grevan {

Painter::Painter(int width, int height) : canvas(create_bitmap(width, height)) {
    clear_to_color(canvas, colour(Palette::kTransparent));
}

Painter::~Painter() {
    destroy_bitmap(canvas);
}

bool Painter::save(const std::string& path) {
    return save_bitmap(path.c_str(), canvas, nullptr) == 0;
}

int Painter::colour(const Tone& tone) {
    return makecol(tone.r, tone.g, tone.b);
}

int Painter::tileWave(int x, int tileWidth, int periods, double amplitude, double phase) {
    const double turn = 6.283185307179586;
    return static_cast<int>(std::lround(amplitude * std::sin(turn * periods * x / tileWidth + phase)));
}

bool Painter::isOpaque(int x, int y) const {
    if (x < 0 || y < 0 || x >= canvas->w || y >= canvas->h) {
        return false;
    }
    return getpixel(canvas, x, y) != colour(Palette::kTransparent);
}

void Painter::pixel(int x, int y, const Tone& tone) {
    putpixel(canvas, x, y, colour(tone));
}

void Painter::stain(int x, int y, const Tone& tone) {
    if (isOpaque(x, y)) {
        pixel(x, y, tone);
    }
}

void Painter::erase(int x, int y) {
    pixel(x, y, Palette::kTransparent);
}

void Painter::fill(int x1, int y1, int x2, int y2, const Tone& tone) {
    rectfill(canvas, x1, y1, x2, y2, colour(tone));
}

void Painter::disc(int x, int y, int radius, const Tone& tone) {
    circlefill(canvas, x, y, radius, colour(tone));
}

void Painter::oval(int x, int y, int radiusX, int radiusY, const Tone& tone) {
    ellipsefill(canvas, x, y, radiusX, radiusY, colour(tone));
}

void Painter::line(int x1, int y1, int x2, int y2, const Tone& tone) {
    ::line(canvas, x1, y1, x2, y2, colour(tone));
}

void Painter::triangle(int x1, int y1, int x2, int y2, int x3, int y3, const Tone& tone) {
    ::triangle(canvas, x1, y1, x2, y2, x3, y3, colour(tone));
}

void Painter::frame(int x1, int y1, int x2, int y2, const Tone& tone) {
    rect(canvas, x1, y1, x2, y2, colour(tone));
}

void Painter::text(int x, int y, const std::string& words, const Tone& tone, int scale) {
    BITMAP* letters = create_bitmap(std::max(1, text_length(font, words.c_str())), text_height(font));
    const int background = colour(Palette::kTransparent);
    clear_to_color(letters, background);
    textout_ex(letters, font, words.c_str(), 0, 0, colour(tone), -1);
    for (int ly = 0; ly < letters->h; ++ly) {
        for (int lx = 0; lx < letters->w; ++lx) {
            if (getpixel(letters, lx, ly) != background) {
                fill(x + lx * scale, y + ly * scale, x + lx * scale + scale - 1, y + ly * scale + scale - 1,
                     tone);
            }
        }
    }
    destroy_bitmap(letters);
}

void Painter::bevelBox(int x1, int y1, int x2, int y2, const Ramp& ramp) {
    fill(x1, y1, x2, y2, ramp.base);
    fill(x1, y2 - 1, x2, y2, ramp.shadow);
    fill(x2 - 1, y1, x2, y2, ramp.shadow);
    fill(x1, y1, x2 - 1, y1 + 1, ramp.light);
    fill(x1, y1, x1 + 1, y2 - 1, ramp.light);
    pixel(x1 + 1, y1 + 1, ramp.highlight);
}

void Painter::cluster(const std::vector<Blob>& blobs, const Ramp& ramp) {
    struct Layer {
        const Tone& tone;
        int shiftPercent;  // of the radius, towards the upper left
        int sizePercent;
    };
    const Layer layers[] = {
        {ramp.shadow, 0, 100},
        {ramp.base, 14, 84},
        {ramp.light, 30, 52},
        {ramp.highlight, 42, 22},
    };
    for (const Layer& layer : layers) {
        for (const Blob& b : blobs) {
            int shift = b.radius * layer.shiftPercent / 100;
            int radius = std::max(1, b.radius * layer.sizePercent / 100);
            disc(b.x - shift, b.y - shift, radius, layer.tone);
        }
    }
}

void Painter::speckle(int x1, int y1, int x2, int y2, const Tone& tone, int perMille, ArtRandom& random) {
    for (int y = y1; y <= y2; ++y) {
        for (int x = x1; x <= x2; ++x) {
            if (random.chance(perMille)) {
                stain(x, y, tone);
            }
        }
    }
}

void Painter::blend(int y1, int y2, const Tone& from, const Tone& to) {
    static const int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    const int bands = 8;
    const int span = std::max(1, y2 - y1);
    for (int y = y1; y <= y2; ++y) {
        for (int x = 0; x < canvas->w; ++x) {
            // Sixteenths of a band, nudged by the dither matrix before rounding down.
            int position = (y - y1) * bands * 16 / span + kBayer[y & 3][x & 3] - 8;
            int band = std::clamp(position / 16, 0, bands);
            pixel(x, y,
                  Tone{from.r + (to.r - from.r) * band / bands, from.g + (to.g - from.g) * band / bands,
                       from.b + (to.b - from.b) * band / bands});
        }
    }
}

void Painter::masonry(int x1, int y1, int x2, int y2, const Ramp& ramp, int blockWidth, int blockHeight,
                      ArtRandom& random) {
    fill(x1, y1, x2, y2, ramp.shadow);
    for (int row = 0; y1 + row * blockHeight <= y2; ++row) {
        int top = y1 + row * blockHeight;
        int offset = row % 2 ? blockWidth / 2 : 0;
        for (int left = x1 - offset; left <= x2; left += blockWidth) {
            int shift = random.between(-8, 8);
            auto tint = [shift](const Tone& t) { return Tone{t.r + shift, t.g + shift, t.b + shift}; };
            Ramp block{tint(ramp.shadow), tint(ramp.base), tint(ramp.light), tint(ramp.highlight)};
            bevelBox(std::max(left, x1), top, std::min(left + blockWidth - 2, x2),
                     std::min(top + blockHeight - 2, y2), block);
        }
    }
}

void Painter::roundCorners(int x1, int y1, int x2, int y2) {
    const int corners[4][2] = {{x1, y1}, {x2, y1}, {x1, y2}, {x2, y2}};
    for (const auto& corner : corners) {
        int stepX = corner[0] == x1 ? 1 : -1;
        int stepY = corner[1] == y1 ? 1 : -1;
        erase(corner[0], corner[1]);
        erase(corner[0] + stepX, corner[1]);
        erase(corner[0], corner[1] + stepY);
    }
}

void Painter::outline(const Tone& ink, int openBorders) {
    const int w = canvas->w;
    const int h = canvas->h;
    // Decided on the picture as it was, so that fresh ink does not spread further.
    std::vector<char> opaque(static_cast<size_t>(w) * h);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            opaque[static_cast<size_t>(y) * w + x] = isOpaque(x, y);
        }
    }
    auto openAt = [&](int x, int y) {
        if (y < 0) {
            return (openBorders & BORDER_TOP) != 0;
        }
        if (y >= h) {
            return (openBorders & BORDER_BOTTOM) != 0;
        }
        if (x < 0) {
            return (openBorders & BORDER_LEFT) != 0;
        }
        if (x >= w) {
            return (openBorders & BORDER_RIGHT) != 0;
        }
        return !opaque[static_cast<size_t>(y) * w + x];
    };
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            if (!opaque[static_cast<size_t>(y) * w + x]) {
                continue;
            }
            if (openAt(x - 1, y) || openAt(x + 1, y) || openAt(x, y - 1) || openAt(x, y + 1)) {
                pixel(x, y, ink);
            }
        }
    }
}

}  // namespace Grevan
