#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>

#include "LevelDocument.h"
#include "support/TestFolder.h"

namespace {

std::string contentsOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// The pieces as the game reads them from the file, one "image layer kind x y" a line.
std::string piecesOf(const std::string& path) {
    Grevan::MapFile file;
    EXPECT_TRUE(file.read(path.c_str())) << path;
    std::ostringstream out;
    out << file.getWidth() << "x" << file.getHeight() << "\n";
    for (const Grevan::MapPiece& piece : file.getPieces()) {
        out << piece.image << " " << piece.layer << " " << piece.solid << " " << piece.x << " " << piece.y
            << "\n";
    }
    return out.str();
}

}  // namespace

TEST(LevelDocument, EveryShippedMapIsWrittenBackByteForByte) {
    for (const char* name : {"maps/meadow.map", "maps/harbour.map", "maps/fortress.map"}) {
        LevelDocument level;
        std::string error;
        int dropped = 0;
        ASSERT_TRUE(level.read(name, error, dropped)) << error;
        std::ostringstream written;
        level.write(written);
        EXPECT_EQ(written.str(), contentsOf(name)) << name;
    }
}

TEST(LevelDocument, AnOddButLegalMapIsSavedToAFileThatLoadsTheSamePieces) {
    TestFolder folder;
    // Records across lines, tabs and runs of blanks, a skipped kind, a far position brought back,
    // odd ignored numbers, and a file that ends early: its last record is repeated.
    const std::tuple<const char*, std::string> cases[] = {
        {"spread",
         "7\n\n 300\t200   1 2 3\n 3 crate.bmp\n5 0\n10\n20 -1 2 3 4 wall.bmp 0 7 1 1 0 0 0 0\n"
         "tree.bmp 9 1 5000000000 -4 0 0 0 0\n"},
        {"short", "1 300 200 0 0 0 4 crate.bmp 0 1 10 20 0 0 0 0 rock.bmp 0 0 30"},
    };
    for (const auto& [name, text] : cases) {
        const std::string original = folder.writeFile(std::string(name) + ".map", text);
        LevelDocument level;
        std::string error;
        int dropped = 0;
        ASSERT_TRUE(level.read(original, error, dropped)) << error;
        const std::string saved = folder.getPath() + "/" + name + "-saved.map";
        ASSERT_TRUE(level.save(saved, false, error)) << error;
        EXPECT_EQ(piecesOf(saved), piecesOf(original)) << name;
    }
}

TEST(LevelDocument, SavingKeepsThePreviousFileAndAFailedSaveLeavesEverythingAsItWas) {
    TestFolder folder;
    const std::string path = folder.writeFile("level.map", "first");
    LevelDocument level;
    std::string error;
    ASSERT_TRUE(level.save(path, true, error)) << error;
    EXPECT_EQ(contentsOf(path + "~"), "first");
    ASSERT_TRUE(level.save(path, true, error)) << error;
    EXPECT_EQ(contentsOf(path + "~"), contentsOf(path));

    // A folder cannot be replaced by a file; a folder that does not exist takes no file; a level
    // the game would refuse is never written.
    const std::string taken = folder.getPath() + "/taken.map";
    std::filesystem::create_directory(taken);
    LevelDocument huge;
    huge.width = 1 << 20;
    const std::tuple<const LevelDocument*, std::string, std::string> failures[] = {
        {&level, taken, "cannot write " + taken + ": it is a folder"},
        {&level, folder.getPath() + "/none/level.map",
         "cannot write " + folder.getPath() + "/none/level.map: No such file or directory"},
        {&huge, path, "the level area 1048576 x 600 is too large: at most 67108864 pixels"},
    };
    for (const auto& [document, target, expected] : failures) {
        EXPECT_FALSE(document->save(target, true, error));
        EXPECT_EQ(error, expected);
    }
    EXPECT_TRUE(std::filesystem::is_directory(taken));
    EXPECT_EQ(contentsOf(path + "~"), contentsOf(path));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.getPath()), {}), 3)
        << "no temporary left";
}
