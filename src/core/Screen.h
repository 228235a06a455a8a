#pragma once

#include <allegro.h>

#include <atomic>

namespace Grevan {

// Fade modes. Their values are part of the script interface: fadeIn and fadeOut wait on them.
enum FadeMode { FADE_DARK = 0, FADE_IN = 1, FADE_OUT = 2, FADE_SHOWN = 3 };

// The background colour for Allegro's text calls that leaves what lies beneath the letters showing.
const int kClearTextBackground = -1;

// The window, a memory back buffer that every frame is drawn into, and the copy of that buffer
// to the screen once a frame, darkened by a fade. The game starts dark: nothing reaches the
// screen until the script fades in.
class Screen {
  public:
    static const int kFadeStep = 5;  // alpha per frame

    Screen() = default;
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    bool setVideoMode(int width, int height, int bitsPerPixel);
    // Takes the two pages and the back buffer that flip works with; setVideoMode hands it video
    // pages, a headless caller memory bitmaps. Bitmaps adopted earlier are destroyed.
    void adoptPages(BITMAP* firstPage, BITMAP* secondPage, BITMAP* buffer);
    // Frees the pages and the buffer; must run while Allegro is still up.
    void releasePages();

    int getWidth() const { return width; }
    int getHeight() const { return height; }
    int getBitsPerPixel() const { return bitsPerPixel; }
    BITMAP* getBufferPage() { return buffer; }
    BITMAP* getCurrentPage() { return pages[1 - pageIndex]; }

    void flip();
    void fadeIn();
    void fadeOut();
    int getFadeMode() const { return fadeMode; }
    int getFadeAlpha() const { return fadeAlpha; }

  private:
    void darkenBuffer();
    void copyBufferToScreen();

    int width = 0;
    int height = 0;
    int bitsPerPixel = 0;
    int pageIndex = 0;
    BITMAP* pages[2] = {nullptr, nullptr};
    BITMAP* buffer = nullptr;
    // Written by the script thread and read by the main loop's flip without the game lock.
    std::atomic<int> fadeMode{FADE_DARK};
    std::atomic<int> fadeAlpha{0};
    int fadeStep = kFadeStep;
};

}  // namespace Grevan
