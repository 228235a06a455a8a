#include "core/Screen.h"

#include <cstdint>
#include <cstdio>
#include <initializer_list>

namespace Grevan {

Screen::~Screen() {
    releasePages();
}

void Screen::releasePages() {
    adoptPages(nullptr, nullptr, nullptr);
}

bool Screen::setVideoMode(int w, int h, int bits) {
    // Video pages belong to the graphics mode: free them before the mode changes, since
    // Allegro tears down a mode's video memory when it sets another.
    releasePages();
    // The colour depth follows the desktop; the requested depth is only remembered.
    set_color_depth(desktop_color_depth());
    if (set_gfx_mode(GFX_AUTODETECT_WINDOWED, w, h, 0, 0) != 0) {
        printf("Failed to set video mode %d*%d*%d\n", w, h, bits);
        fprintf(stderr, "Allegro: %s\n", allegro_error);
        return false;
    }
    width = w;
    height = h;
    bitsPerPixel = bits;
    pageIndex = 1;

    BITMAP* firstPage = create_video_bitmap(w, h);
    BITMAP* secondPage = create_video_bitmap(w, h);
    adoptPages(firstPage, secondPage, create_bitmap(w, h));
    if (pages[0] && buffer) {
        // Some drivers give only one video page; flip then writes into the one on display.
        if (pages[1]) {
            show_video_bitmap(pages[1]);
        }
        return true;
    }
    printf("Failed to create video bitmap.");
    return false;
}

void Screen::adoptPages(BITMAP* firstPage, BITMAP* secondPage, BITMAP* newBuffer) {
    for (BITMAP* old : {pages[0], pages[1], buffer}) {
        if (old) {
            destroy_bitmap(old);
        }
    }
    pages[0] = firstPage;
    pages[1] = secondPage;
    buffer = newBuffer;
    pageIndex = 1;
}

void Screen::fadeIn() {
    fadeAlpha = 255;
    fadeMode = FADE_IN;
}

void Screen::fadeOut() {
    fadeAlpha = 0;
    fadeMode = FADE_OUT;
}

void Screen::flip() {
    switch (fadeMode) {
        case FADE_SHOWN:
            copyBufferToScreen();
            break;
        case FADE_IN:
            darkenBuffer();
            copyBufferToScreen();
            fadeAlpha = fadeAlpha - fadeStep;
            if (fadeAlpha < 0) {
                fadeMode = FADE_SHOWN;
            }
            break;
        case FADE_OUT:
            darkenBuffer();
            copyBufferToScreen();
            fadeAlpha = fadeAlpha + fadeStep;
            if (fadeAlpha > 255) {
                // Dark mode copies nothing, so the fully darkened picture stays on the screen.
                fadeMode = FADE_DARK;
            }
            break;
        default:
            break;
    }
}

namespace {
// Each pixel of a 32-bit memory bitmap made what Allegro's translucent sprite makes of a black
// pixel drawn over it at this alpha (0 to 255): its 24- and 32-bit blender's arithmetic,
// unsigned wrap-around included, red and blue in one multiply. Done in place it spares the
// full-screen overlay and a blender call per pixel, and gives the same picture to the bit.
void darkenInPlace(BITMAP* b, unsigned long alpha) {
    const unsigned long n = alpha ? alpha + 1 : 0;
    for (int y = 0; y < b->h; y++) {
        uint32_t* row = reinterpret_cast<uint32_t*>(b->line[y]);
        for (int x = 0; x < b->w; x++) {
            unsigned long pixel = row[x];
            unsigned long redBlue = (0UL - (pixel & 0xFF00FF)) * n / 256 + pixel;
            unsigned long green = (0UL - (pixel & 0xFF00)) * n / 256 + (pixel & 0xFF00);
            row[x] = static_cast<uint32_t>((redBlue & 0xFF00FF) | (green & 0xFF00));
        }
    }
}
}  // namespace

void Screen::darkenBuffer() {
    if (!buffer) {
        return;
    }
    if (bitmap_color_depth(buffer) == 32 && is_memory_bitmap(buffer)) {
        darkenInPlace(buffer, static_cast<unsigned long>(fadeAlpha));
        return;
    }
    BITMAP* black = create_bitmap(buffer->w, buffer->h);
    if (!black) {
        return;
    }
    clear_to_color(black, 0);
    set_trans_blender(0, 0, 0, fadeAlpha);
    draw_trans_sprite(buffer, black, 0, 0);
    destroy_bitmap(black);
}

void Screen::copyBufferToScreen() {
    BITMAP* page = getCurrentPage();
    if (!buffer || !page) {
        return;
    }
    blit(buffer, page, 0, 0, 0, 0, buffer->w, buffer->h);
    // With two video pages the one written is not the one on display until it is shown.
    if (pages[1]) {
        show_video_bitmap(page);
    }
}

}  // namespace Grevan
