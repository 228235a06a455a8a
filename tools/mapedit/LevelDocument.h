#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "core/MapFile.h"

// A level as the editor holds it: what a map file says, in the game's terms, with the numbers
// the game ignores kept so that a file opened and saved unchanged is written as it was read.
// Pieces are in drawing order, the order of the file.
struct LevelDocument {
    static constexpr int kNewWidth = 1600;  // pixels
    static constexpr int kNewHeight = 600;

    int leadingNumber = 1;  // the file's first number; the shipped maps write 1
    int width = kNewWidth;
    int height = kNewHeight;
    int red = 150;
    int green = 204;
    int blue = 236;
    std::vector<Grevan::MapPiece> pieces;

    bool operator==(const LevelDocument& other) const;

    // Reads the file with the game's own reader. False, with the game's refusal in `error`, when
    // the game would refuse it; `dropped` counts the records kept out because they name no
    // picture (a file that ends before its first record), which no file could write back.
    bool read(const std::string& path, std::string& error, int& dropped);
    // The map file text, one line for each header group and one for each piece.
    void write(std::ostream& out) const;
    // Why the game would refuse this level, or empty when it takes it.
    std::string checkBounds() const;

    // Writes the file atomically: a temporary file beside it is renamed over it, so that a failed
    // save leaves the old file whole. With a backup, the old file is first copied to PATH~.
    bool save(const std::string& path, bool backup, std::string& error) const;
};
