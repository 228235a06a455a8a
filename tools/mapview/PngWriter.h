#pragma once

#include <allegro.h>

#include <string>

// What becomes of the bitmap's mask colour (magenta in true colour): drawn like any colour (a map
// preview's outlines use it), or left transparent (an icon's corners).
enum PngMask { PNG_MASK_DRAWN, PNG_MASK_TRANSPARENT };

// Writes a 32-bit Allegro bitmap as an 8-bit RGB PNG through libpng, RGBA when the mask is
// transparent. False, with libpng's reason in `error`, when the file cannot be written.
bool writePng(BITMAP* bitmap, const std::string& path, std::string& error, PngMask mask = PNG_MASK_DRAWN);
