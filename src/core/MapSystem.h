#pragma once

#include <allegro.h>

#include "world/Object.h"

namespace Grevan {

// The level's size and background colour, and the camera: a rectangle of the level as large as
// the screen, whose top-left corner drawing subtracts from world coordinates.
class MapSystem {
  public:
    static const int kStartWidth = 640;  // pixels, until a map is loaded
    static const int kStartHeight = 480;

    MapSystem() = default;
    MapSystem(const MapSystem&) = delete;
    MapSystem& operator=(const MapSystem&) = delete;

    // Sets the level size; the camera stays where it is.
    void initialize(int width, int height);
    int getWidth() const { return levelWidth; }
    int getHeight() const { return levelHeight; }
    void setBackgroundColor(int red, int green, int blue);
    int getBackgroundColor() const { return backgroundColor; }
    void draw(BITMAP* target);

    int getClientX() const { return clientX; }
    int getClientY() const { return clientY; }
    void setClientX(int x) { clientX = x; }
    void setClientY(int y) { clientY = y; }
    // The camera's size also sets its margins, half of it.
    void setClientWidth(int w);
    void setClientHeight(int h);
    int getClientWidth() const { return clientWidth; }
    int getClientHeight() const { return clientHeight; }

    void setFollowObject(Object* o) { followObject = o; }
    Object* getFollowObject() const { return followObject; }
    // Puts the follow object's top-left corner (not its centre) in view.
    void moveClient();
    // Centres the camera on the point at once, then keeps it within the level. The clamp at
    // the right and bottom comes last on purpose: a level narrower than the camera puts its
    // corner below 0 and is drawn flush with the screen's right edge.
    void moveClientTo(int x, int y);
    // Points on the camera's border are outside.
    bool inClient(int x, int y) const;

  private:
    // One axis of moveClientTo: centred on the point, then kept within the level.
    static int placeAxis(int client, int point, int clientSize, int margin, int levelSize);

    BITMAP* backgroundImage = nullptr;  // no operation sets it: the colour is always used
    int clientX = 0;
    int clientY = 0;
    int clientWidth = 0;
    int clientHeight = 0;
    int levelWidth = kStartWidth;
    int levelHeight = kStartHeight;
    int marginX = 0;
    int marginY = 0;
    Object* followObject = nullptr;  // not owned
    int backgroundColor = 0;
};

}  // namespace Grevan
