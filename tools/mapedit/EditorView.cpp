#include "EditorView.h"

#include <algorithm>
#include <cstdint>

#include "MapPreview.h"

namespace {

const char* const kPictureFolder = "image/object/";
const int kDimAlpha = 90;  // of 255: how much of a dimmed piece shows

int voidColour() {
    return makecol(40, 40, 46);
}
int selectionColour() {
    return makecol(255, 230, 0);
}
int placeholderColour() {
    return makecol(255, 120, 0);
}
int startColour() {
    return makecol(0, 255, 120);
}
int levelEdgeColour() {
    return makecol(255, 255, 255);
}
int cameraColour() {
    return makecol(90, 220, 255);
}

// Keeps a view coordinate within what Allegro's primitives take without wrapping.
int withinDrawing(long long coordinate) {
    return static_cast<int>(std::clamp(coordinate, -100000LL, 100000LL));
}

}  // namespace

EditorView::EditorView() {
    stamp.show();
    camera.setClientWidth(kCameraWidth);
    camera.setClientHeight(kCameraHeight);
}

BITMAP* EditorView::getPicture(const std::string& image) {
    return pictures.get(kPictureFolder + image);
}

LevelPoint EditorView::getPieceSize(const std::string& image) {
    const BITMAP* picture = getPicture(image);
    return picture ? LevelPoint{picture->w, picture->h} : LevelPoint{kPlaceholderSize, kPlaceholderSize};
}

void EditorView::reloadPictures() {
    scaledPictures.clear();
    pictures.clear();
}

BITMAP* EditorView::scaled(BITMAP* picture, int zoomShift) {
    if (zoomShift == 0) {
        return picture;
    }
    auto& copies = scaledPictures[picture];
    Grevan::OwnedBitmap& copy = copies[static_cast<size_t>(zoomShift - 1)];
    if (!copy) {
        const int width = std::max(1, picture->w >> zoomShift);
        const int height = std::max(1, picture->h >> zoomShift);
        copy.reset(create_bitmap(width, height));
        stretch_blit(picture, copy.get(), 0, 0, picture->w, picture->h, 0, 0, width, height);
    }
    return copy.get();
}

LevelRect EditorView::cameraAround(const LevelDocument& document, const LevelPoint& point) {
    camera.initialize(document.width, document.height);
    camera.moveClientTo(point.x, point.y);
    return {camera.getClientX(), camera.getClientY(), camera.getClientX() + kCameraWidth,
            camera.getClientY() + kCameraHeight};
}

void EditorView::drawRect(BITMAP* target, const LevelRect& area, const ViewTransform& view, int colour) {
    rect(target, withinDrawing(view.toViewX(area.left)), withinDrawing(view.toViewY(area.top)),
         withinDrawing(view.toViewX(area.right) - 1LL), withinDrawing(view.toViewY(area.bottom) - 1LL),
         colour);
}

void EditorView::draw(BITMAP* target, const MapEditor& editor, const ViewTransform& view,
                      const ViewOptions& options) {
    const LevelDocument& document = editor.getDocument();
    clear_to_color(target, voidColour());
    camera.setBackgroundColor(document.red, document.green, document.blue);
    rectfill(target, withinDrawing(view.toViewX(0)), withinDrawing(view.toViewY(0)),
             withinDrawing(view.toViewX(document.width) - 1LL),
             withinDrawing(view.toViewY(document.height) - 1LL), camera.getBackgroundColor());
    const LevelRect visible{static_cast<int>(std::max<long long>(view.toLevelX(0), INT32_MIN)),
                            static_cast<int>(std::max<long long>(view.toLevelY(0), INT32_MIN)),
                            static_cast<int>(std::min<long long>(view.toLevelX(target->w), INT32_MAX)),
                            static_cast<int>(std::min<long long>(view.toLevelY(target->h), INT32_MAX))};
    for (const Grevan::MapPiece& piece : document.pieces) {
        const KindDisplay display = piece.solid ? options.solid : options.decoration;
        const LevelPoint size = getPieceSize(piece.image);
        if (display == KindDisplay::HIDDEN || piece.x >= visible.right || piece.y >= visible.bottom ||
            piece.x + size.x <= visible.left || piece.y + size.y <= visible.top) {
            continue;
        }
        drawPiece(target, piece, view, display == KindDisplay::DIMMED);
    }
    if (options.outlines) {
        const int outline = MapPreview::outlineColour();
        for (int index = 0; index < static_cast<int>(document.pieces.size()); ++index) {
            const Grevan::MapPiece& piece = document.pieces[static_cast<size_t>(index)];
            // A piece without its picture collides with nothing in the game.
            if (piece.solid && options.solid != KindDisplay::HIDDEN && getPicture(piece.image)) {
                drawRect(target, editor.rectangleOf(index), view, outline);
            }
        }
    }
    drawRect(target, {0, 0, document.width, document.height}, view, levelEdgeColour());
    for (LevelOverlay* overlay : overlays) {
        overlay->draw(target, view);
    }
    drawSelection(target, editor, view);
    drawMarks(target, editor, view, options);
}

void EditorView::drawPiece(BITMAP* target, const Grevan::MapPiece& piece, const ViewTransform& view,
                           bool dimmed) {
    BITMAP* picture = getPicture(piece.image);
    if (!picture) {
        drawPlaceholder(target, piece, view);
    } else if (dimmed) {
        set_trans_blender(0, 0, 0, kDimAlpha);
        draw_trans_sprite(target, scaled(picture, view.zoomShift), view.toViewX(piece.x),
                          view.toViewY(piece.y));
    } else if (view.zoomShift == 0) {
        stamp.showSharedImage(picture);
        stamp.setX(piece.x);
        stamp.setY(piece.y);
        stamp.draw(target, static_cast<int>(view.cameraX), static_cast<int>(view.cameraY));
    } else {
        draw_sprite(target, scaled(picture, view.zoomShift), view.toViewX(piece.x), view.toViewY(piece.y));
    }
}

void EditorView::drawPlaceholder(BITMAP* target, const Grevan::MapPiece& piece, const ViewTransform& view) {
    const int left = view.toViewX(piece.x);
    const int top = view.toViewY(piece.y);
    const int right = left + view.toViewLength(kPlaceholderSize) - 1;
    const int bottom = top + view.toViewLength(kPlaceholderSize) - 1;
    const int colour = placeholderColour();
    rect(target, left, top, right, bottom, colour);
    line(target, left, top, right, bottom, colour);
    line(target, left, bottom, right, top, colour);
    textout_ex(target, font, "?", left + 2, top + 2, colour, -1);
}

void EditorView::drawSelection(BITMAP* target, const MapEditor& editor, const ViewTransform& view) {
    const int colour = selectionColour();
    const int shadow = makecol(0, 0, 0);
    for (int index : editor.getSelection()) {
        const LevelRect area = editor.rectangleOf(index);
        const int left = withinDrawing(view.toViewX(area.left));
        const int top = withinDrawing(view.toViewY(area.top));
        const int right = withinDrawing(view.toViewX(area.right) - 1LL);
        const int bottom = withinDrawing(view.toViewY(area.bottom) - 1LL);
        // Two pixels of yellow on a dark rim read on light and dark pictures alike.
        rect(target, left - 2, top - 2, right + 2, bottom + 2, shadow);
        rect(target, left - 1, top - 1, right + 1, bottom + 1, colour);
        rect(target, left, top, right, bottom, colour);
        for (const auto& [x, y] : {std::pair{left, top}, {right, top}, {left, bottom}, {right, bottom}}) {
            rectfill(target, x - 3, y - 3, x + 3, y + 3, colour);
            rect(target, x - 3, y - 3, x + 3, y + 3, shadow);
        }
    }
}

void EditorView::drawMarks(BITMAP* target, const MapEditor& editor, const ViewTransform& view,
                           const ViewOptions& options) {
    if (!options.ghost.empty() && options.mouse) {
        BITMAP* picture = getPicture(options.ghost);
        Grevan::MapPiece ghost;
        ghost.image = options.ghost;
        ghost.x = options.ghostAt.x;
        ghost.y = options.ghostAt.y;
        drawPiece(target, ghost, view, picture != nullptr);
    }
    if (const std::optional<LevelPoint> start = editor.getStartPoint()) {
        // The play-test's player: 32 x 48 pixels standing on the point.
        const int x = view.toViewX(start->x);
        const int y = view.toViewY(start->y);
        const int half = view.toViewLength(16);
        rect(target, x - half, y - view.toViewLength(48), x + half, y, startColour());
        circlefill(target, x, y, 3, startColour());
        textout_centre_ex(target, font, "start", x, y + 5, startColour(), makecol(0, 0, 0));
    }
    if (options.mouse && options.ghost.empty()) {
        drawRect(target, cameraAround(editor.getDocument(), *options.mouse), view, cameraColour());
    }
    if (options.band) {
        drawRect(target, *options.band, view, selectionColour());
    }
}
