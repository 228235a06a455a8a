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
    // Writes a strip of `frames` frames of frameWidth x frameHeight, side by side, each frame
    // filled with a colour of its own and
    // marked white on its left column; needs Allegro. Returns the file's absolute path.
    std::string writeStrip(const std::string& name, int frameWidth, int frameHeight, int frames) const;
    // The role name under which Player::setRole finds a role description written into the
    // sub-folder `role` of this folder, from the game's working directory.
    std::string roleName(const std::string& role) const;

  private:
    std::string path;
};
