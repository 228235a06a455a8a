#pragma once

#include <allegro.h>

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "LevelOverlay.h"
#include "MapEditor.h"
#include "ViewTransform.h"
#include "core/MapSystem.h"
#include "world/Object.h"
#include "world/OwnedBitmap.h"
#include "world/PictureCache.h"

// How one kind of piece (solid or decoration) is shown.
enum class KindDisplay { SHOWN, DIMMED, HIDDEN };

// What the level view shows besides the pieces.
struct ViewOptions {
    bool outlines = true;
    KindDisplay solid = KindDisplay::SHOWN;
    KindDisplay decoration = KindDisplay::SHOWN;
    std::optional<LevelPoint> mouse;  // the level point under the mouse, when over the view
    std::optional<LevelRect> band;    // a rubber band being drawn
    std::string ghost;                // a picture about to be placed at `ghostAt`
    LevelPoint ghostAt;
};

// Draws the level as the game draws it: the background colour, then every piece in file order
// with the game's picture cache, magenta transparent, one to one through the game's own object
// drawing. Zoomed out, each picture is drawn from a copy scaled once. Over the pieces come the
// collision outlines, the overlays, the selection, the start point and the frame of what the
// game's camera would show around the mouse.
class EditorView {
  public:
    static constexpr int kPlaceholderSize = 40;  // pixels, a piece whose picture is missing
    static constexpr int kCameraWidth = 800;     // pixels: the game's screen
    static constexpr int kCameraHeight = 600;

    EditorView();

    // The picture of a piece, loaded once; null when it cannot be loaded.
    BITMAP* getPicture(const std::string& image);
    // A piece's size: its picture's, or the placeholder's.
    LevelPoint getPieceSize(const std::string& image);
    // Forgets the pictures, so that files changed on disk are read again.
    void reloadPictures();

    void addOverlay(LevelOverlay* overlay) { overlays.push_back(overlay); }
    void draw(BITMAP* target, const MapEditor& editor, const ViewTransform& view, const ViewOptions& options);
    // Where the game's camera would stand with its player at the point.
    LevelRect cameraAround(const LevelDocument& document, const LevelPoint& point);

  private:
    void drawPiece(BITMAP* target, const Grevan::MapPiece& piece, const ViewTransform& view, bool dimmed);
    void drawPlaceholder(BITMAP* target, const Grevan::MapPiece& piece, const ViewTransform& view);
    void drawSelection(BITMAP* target, const MapEditor& editor, const ViewTransform& view);
    void drawMarks(BITMAP* target, const MapEditor& editor, const ViewTransform& view,
                   const ViewOptions& options);
    BITMAP* scaled(BITMAP* picture, int zoomShift);
    void drawRect(BITMAP* target, const LevelRect& area, const ViewTransform& view, int colour);

    Grevan::PictureCache pictures{Grevan::PictureCache::FailureReport::QUIET};
    std::map<BITMAP*, std::array<Grevan::OwnedBitmap, 2>> scaledPictures;  // at 1/2 and 1/4
    Grevan::Object stamp;                 // draws each piece at zoom 1 as the game draws its objects
    Grevan::MapSystem camera;             // places the game's camera and makes the background colour
    std::vector<LevelOverlay*> overlays;  // not owned
};
