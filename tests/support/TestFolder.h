#pragma once

#include <string>

// A temporary folder for files a test writes (role descriptions, image strips), removed with
// everything in it when the test ends.
class TestFolder {
  public:
    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::string& getPath() const { return path; }
    // Writes text into the folder; returns the file's absolute path.
    std::string writeFile(const std::string& name, const std::string& text) const;
    // Writes a strip of `frames` frames of frameWidth x frameHeight side by side, each filled with
    // a colour of its own and marked white on its left column. Returns the file's absolute path.
    std::string writeStrip(const std::string& name, int frameWidth, int frameHeight, int frames) const;
    // The relative path from the game's folder `gameFolder` (e.g. "image/role", under the
    // working directory) to `entry` in this folder: the name to hand to code that reads
    // "image/role/" + name, such as a role or a map piece.
    std::string reachFrom(const std::string& gameFolder, const std::string& entry) const;

  private:
    std::string path;
};
