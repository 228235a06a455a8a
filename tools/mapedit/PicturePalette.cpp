#include "PicturePalette.h"

#include <algorithm>
#include <filesystem>

#include "EditorView.h"

namespace {

const int kThumbnailWidth = 56;  // pixels
const int kThumbnailHeight = 44;
const int kMargin = 4;
const size_t kLineLength = 12;  // characters of the built-in font beside a thumbnail

int paletteColour() {
    return makecol(30, 32, 38);
}

}  // namespace

PicturePalette::PicturePalette(const std::string& folder) {
    std::error_code failure;
    for (const auto& entry : std::filesystem::directory_iterator(folder, failure)) {
        std::string name = entry.path().filename().string();
        std::string lower = name;
        std::transform(lower.begin(), lower.end(), lower.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        // A name with a blank could not be written in a map file.
        if (entry.is_regular_file() && lower.size() > 4 && lower.substr(lower.size() - 4) == ".bmp" &&
            name.find_first_of(" \t\r\n") == std::string::npos) {
            names.push_back(name);
        }
    }
    std::sort(names.begin(), names.end());
    thumbnails.resize(names.size());
}

int PicturePalette::rowAt(int y) const {
    const int row = firstRow + y / kRowHeight;
    return y >= 0 && row < static_cast<int>(names.size()) ? row : -1;
}

void PicturePalette::scrollBy(int rows, int visibleRows) {
    const int last = std::max(0, static_cast<int>(names.size()) - visibleRows);
    firstRow = std::clamp(firstRow + rows, 0, last);
}

void PicturePalette::choose(const std::string& name, int visibleRows) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        return;
    }
    chosen = name;
    const int row = static_cast<int>(found - names.begin());
    if (row < firstRow || row >= firstRow + visibleRows) {
        scrollBy(row - firstRow - visibleRows / 2, visibleRows);
    }
}

BITMAP* PicturePalette::thumbnail(size_t row, EditorView& view) {
    Grevan::OwnedBitmap& made = thumbnails[row];
    BITMAP* picture = view.getPicture(names[row]);
    if (!made && picture) {
        const double scale = std::min({1.0, static_cast<double>(kThumbnailWidth) / picture->w,
                                       static_cast<double>(kThumbnailHeight) / picture->h});
        const int width = std::max(1, static_cast<int>(picture->w * scale));
        const int height = std::max(1, static_cast<int>(picture->h * scale));
        made.reset(create_bitmap(width, height));
        clear_to_color(made.get(), bitmap_mask_color(made.get()));
        masked_stretch_blit(picture, made.get(), 0, 0, picture->w, picture->h, 0, 0, width, height);
    }
    return made.get();
}

void PicturePalette::draw(BITMAP* target, EditorView& view) {
    clear_to_color(target, paletteColour());
    const int text = makecol(230, 230, 230);
    const int dim = makecol(150, 150, 160);
    for (int y = 0, row = firstRow; y < target->h && row < static_cast<int>(names.size());
         y += kRowHeight, ++row) {
        const std::string& name = names[static_cast<size_t>(row)];
        const bool isChosen = name == chosen;
        if (isChosen) {
            rectfill(target, 0, y, target->w - 1, y + kRowHeight - 1, makecol(70, 90, 150));
        }
        rectfill(target, kMargin, y + kMargin, kMargin + kThumbnailWidth - 1,
                 y + kMargin + kThumbnailHeight - 1, makecol(90, 96, 110));
        if (BITMAP* small = thumbnail(static_cast<size_t>(row), view)) {
            draw_sprite(target, small, kMargin + (kThumbnailWidth - small->w) / 2,
                        y + kMargin + (kThumbnailHeight - small->h) / 2);
        }
        // A long name breaks after an underscore, or where the line is full.
        const std::string shown = name.substr(0, name.size() - 4);
        size_t cut = std::min(shown.size(), kLineLength);
        const size_t underscore = shown.rfind('_', kLineLength - 1);
        if (shown.size() > kLineLength && underscore != std::string::npos && underscore > 0) {
            cut = underscore + 1;
        }
        const int textX = 2 * kMargin + kThumbnailWidth;
        textout_ex(target, font, shown.substr(0, cut).c_str(), textX, y + 6, text, -1);
        textout_ex(target, font, shown.substr(cut, kLineLength).c_str(), textX, y + 18, text, -1);
        const BITMAP* picture = view.getPicture(name);
        const std::string size =
            picture ? std::to_string(picture->w) + "x" + std::to_string(picture->h) : "cannot load";
        textout_ex(target, font, size.c_str(), textX, y + 34, dim, -1);
        hline(target, 0, y + kRowHeight - 1, target->w - 1, makecol(50, 52, 60));
    }
    vline(target, 0, 0, target->h - 1, makecol(90, 96, 110));
}
