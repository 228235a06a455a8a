#include "support/TestFolder.h"

#include <allegro.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

TestFolder::TestFolder() {
    char pattern[] = "/tmp/grevan-test-XXXXXX";
    if (!mkdtemp(pattern)) {
        throw std::runtime_error("cannot create a temporary folder");
    }
    path = pattern;
}

TestFolder::~TestFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

std::string TestFolder::writeFile(const std::string& name, const std::string& text) const {
    std::filesystem::path file = std::filesystem::path(path) / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << text;
    return file.string();
}

std::string TestFolder::writeStrip(const std::string& name, int frameWidth, int frameHeight,
                                   int frames) const {
    std::filesystem::path file = std::filesystem::path(path) / name;
    std::filesystem::create_directories(file.parent_path());
    BITMAP* strip = create_bitmap(frameWidth * frames, frameHeight);
    for (int f = 0; f < frames; f++) {
        rectfill(strip, f * frameWidth, 0, (f + 1) * frameWidth - 1, frameHeight - 1,
                 makecol(10 * f, 200, 30));
        vline(strip, f * frameWidth, 0, frameHeight - 1, makecol(255, 255, 255));
    }
    save_bitmap(file.c_str(), strip, nullptr);
    destroy_bitmap(strip);
    return file.string();
}

std::string TestFolder::reachFrom(const std::string& gameFolder, const std::string& entry) const {
    // Climbing past the root is harmless, so enough ".." reach any absolute folder.
    std::string climb;
    std::string start = std::filesystem::current_path().string() + "/" + gameFolder;
    for (char c : start) {
        if (c == '/') {
            climb += "../";
        }
    }
    return climb + path.substr(1) + "/" + entry;
}
