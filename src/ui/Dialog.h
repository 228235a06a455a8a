#pragma once

#include <allegro.h>

#include <mutex>
#include <string>
#include <vector>

namespace Grevan {

// The game's one speech bubble: white text in a black box with a small tail pointing down at
// the speaker, drawn at alpha 200 over the world. The script thread fills it and shows it; the
// main loop counts its time down with move and draws it. Every operation takes the bubble's own
// lock, so the main thread never draws a bitmap that setText is replacing or has freed.
//
// setText places the bubble against the camera, which the main loop moves under the game lock:
// callers on the script thread hold the game lock around setText.
class Dialog {
  public:
    static const int kDefaultDelay = 300;    // frames, about four and a half seconds at 66 a second
    static const int kShortestShowing = 30;  // frames before hide may cut a bubble short

    Dialog() = default;
    ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // The world point the tail is to point at; setText places the bubble relative to it.
    Dialog& setPosition(int x, int y);
    // Splits the text into lines, sizes and renders the bubble and stands it above the point.
    // The bubble is lifted from where it stands now, so a second setText without setPosition
    // lifts it once more.
    Dialog& setText(std::string text);
    // Bubbles are always white on black: the colour is ignored.
    Dialog& setColor(int color);
    Dialog& setDelay(int frames);
    Dialog& show();
    // Does nothing until the bubble has shown for kShortestShowing frames of its time.
    Dialog& hide();
    // One frame of the bubble's time; it hides itself when its time has run out.
    void move();
    void draw(BITMAP* target, int cameraX, int cameraY);
    // Frees the rendered bubble; must run while Allegro is still up.
    void release();

    bool isVisible() const;
    std::string getText() const;
    // Where and how large the bubble stands now, in world pixels; and its lines.
    int getX() const;
    int getY() const;
    int getWidth() const;
    int getHeight() const;
    std::vector<std::string> getLines() const;

  private:
    void build();

    mutable std::mutex lock;  // guards every field below
    std::string text;
    bool visible = false;
    int delay = kDefaultDelay;
    int remaining = 0;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    int textColor = 0;
    int backColor = 0;
    BITMAP* bitmap = nullptr;  // owned
    std::vector<std::string> lines;
    int lineSpacing = 8;  // pixels between lines, and the inner padding
    int margin = 10;      // pixels around the box: room for the tail
};

}  // namespace Grevan
