#include "PlayTest.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

const int kPlayerWidth = 32;  // pixels: every shipped role
const int kPlayerHeight = 48;

bool playIn(const fs::path& folder, const std::string& game, std::string& error) {
    const pid_t child = fork();
    if (child < 0) {
        error = std::string("cannot start the game: ") + std::strerror(errno);
        return false;
    }
    if (child == 0) {
        if (chdir(folder.c_str()) == 0) {
            execl(game.c_str(), game.c_str(), static_cast<char*>(nullptr));
        }
        _exit(127);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 127) {
        error = "cannot start the game " + game;
        return false;
    }
    return true;
}

}  // namespace

std::string PlayTest::scriptFor(const LevelPoint& start) {
    const int x = start.x - kPlayerWidth / 2;
    const int y = start.y - kPlayerHeight;
    return "' Written by mapedit for one play-test.\n"
           "DIM Hero\n"
           "\n"
           "FUNCTION Main\n"
           "  loadMap(\"" +
           std::string(kMapName) + "\")\n  Hero = addPlayer(0, 65280, \"soldier\", \"Hero\", " +
           std::to_string(x) + ", " + std::to_string(y) +
           ")\n"
           "  showObject(Hero)\n"
           "  addPlayerWeapon(Hero, 1, 60)\n"
           "  addPlayerWeapon(Hero, 2, 300)\n"
           "  addPlayerWeapon(Hero, 3, 10)\n"
           "  switchWeapon(Hero, 2)\n"
           "  fadeIn()\n"
           "  lockControl(0)\n"
           "END FUNCTION\n";
}

bool PlayTest::run(const LevelDocument& document, const LevelPoint& start, const std::string& game,
                   std::string& error) {
    std::string folder = (fs::temp_directory_path() / "mapedit-play-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        error = std::string("cannot make a folder to play in: ") + std::strerror(errno);
        return false;
    }
    std::error_code failure;
    fs::copy(fs::current_path(), folder, fs::copy_options::recursive, failure);
    if (!failure) {
        fs::create_directories(fs::path(folder) / "maps", failure);
        fs::create_directories(fs::path(folder) / "script", failure);
    }
    std::ofstream script(fs::path(folder) / "script" / "main.fb", std::ios::trunc);
    script << scriptFor(start);
    script.close();
    bool played = false;
    if (failure || !script) {
        error = "cannot copy the game's folder to " + folder;
    } else if (document.save((fs::path(folder) / kMapName).string(), false, error)) {
        played = playIn(folder, game, error);
    }
    fs::remove_all(folder, failure);
    return played;
}
