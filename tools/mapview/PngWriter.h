#pragma once

#include <allegro.h>

#include <string>

// Writes a 32-bit Allegro bitmap as an 8-bit RGB PNG through libpng. False, with libpng's reason
// in `error`, when the file cannot be written.
bool writePng(BITMAP* bitmap, const std::string& path, std::string& error);
