#include "core/Screen.h"

#include <cstdio>
#include <initializer_list>

namespace Grevan {

Screen::~Screen() { releasePages(); }

void Screen::releasePages() { adoptPages(nullptr, nullptr, nullptr); }

bool Screen::setVideoMode(int w, int h, int bits) {
    // Video pages belong to the graphics mode: free them before the mode changes, since
    // Allegro tears down a mode's video memory when it sets another.
    releasePages();
    // The colour depth follows the desktop; the requested depth is only remembered.
    set_color_depth(desktop_color_depth());
    if (set_gfx_mode(GFX_AUTODETECT_WINDOWED, w, h, 0, 0) != 0) {
        printf("Failed to set video mode %d*%d*%d\n", w, h, bits);
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

void Screen::darkenBuffer() {
    if (!buffer) {
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
