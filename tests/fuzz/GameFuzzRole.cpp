// libFuzzer target: any bytes as a role description, read through Player::setRole on a headless
// game with the shipped data as working directory (strip paths in it are relative to that); then
// the player walks, turns and dies for a few frames.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "actors/Player.h"
#include "core/Game.h"

using Grevan::Game;
using Grevan::Player;

namespace {

Game* game = nullptr;
BITMAP* buffer = nullptr;
std::string roleFolder;    // where the fuzzed config.dat goes
std::string roleName;      // the name that reaches roleFolder from image/role
std::string emptyMapPath;  // a level without pieces, to start every input from

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        std::abort();
    }
    roleFolder = "/tmp/grevan-fuzz-role-" + std::to_string(getpid());
    std::filesystem::create_directories(roleFolder);
    // Climbing past the root is harmless, so enough ".." reach the folder from anywhere.
    roleName = "../../../../../../../../../../../../../../../.." + roleFolder;
    emptyMapPath = roleFolder + "/empty.map";
    std::ofstream(emptyMapPath) << "0 800 600 0 0 0 0\n";
    game = new Game(Grevan::StartMode::HEADLESS);
    buffer = create_bitmap(800, 600);
    game->loadMap(emptyMapPath.c_str());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ofstream(roleFolder + "/config.dat", std::ios::binary)
        .write(reinterpret_cast<const char*>(data), size);
    Player* p = new Player("fuzz", roleName);
    p->setX(100);
    p->setY(100);
    game->addPlayer(std::unique_ptr<Player>(p));
    p->moveRight(true);
    for (int frame = 0; frame < 30; ++frame) {
        if (frame == 10) {
            p->moveLeft(true);
        }
        if (frame == 20) {
            p->die();
        }
        game->playFrame(buffer, 0);
    }
    p->setRole("soldier");
    game->playFrame(buffer, 0);
    game->loadMap(emptyMapPath.c_str());
    return 0;
}
