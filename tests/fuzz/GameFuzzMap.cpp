// libFuzzer target: any bytes as a map file, loaded through Game::loadMap on a headless game with
// the shipped data as working directory; then two armed players walk, jump, fire and switch
// weapons on the level for a few frames.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "actors/Player.h"
#include "core/Game.h"

using Grevan::Game;
using Grevan::Player;

namespace {

Game* game = nullptr;
BITMAP* buffer = nullptr;
std::string mapPath;
std::string emptyMapPath;  // a level without pieces, to start every input from

Player* addArmedPlayer(const char* role, int x) {
    Player* p = new Player("fuzz", role);
    p->setX(x);
    p->setY(0);
    p->setWeapon(1, std::make_unique<Grevan::Gun>(p));
    p->setWeapon(2, std::make_unique<Grevan::Grenade>(p));
    for (int slot : {1, 2}) {
        p->getWeapon(slot)->addBullets(100);
    }
    p->setEquipment(1);
    game->addPlayer(std::unique_ptr<Player>(p));
    return p;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        std::abort();
    }
    mapPath = "/tmp/grevan-fuzz-map-" + std::to_string(getpid()) + ".map";
    emptyMapPath = "/tmp/grevan-fuzz-empty-" + std::to_string(getpid()) + ".map";
    std::ofstream(emptyMapPath) << "0 800 600 0 0 0 0\n";
    game = new Game(Grevan::StartMode::HEADLESS);
    buffer = create_bitmap(800, 600);
    game->getMapSystem().setClientWidth(800);
    game->getMapSystem().setClientHeight(600);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ofstream(mapPath, std::ios::binary).write(reinterpret_cast<const char*>(data), size);
    game->loadMap(mapPath.c_str());
    Player* soldier = addArmedPlayer("soldier", 100);
    Player* raider = addArmedPlayer("raider", 300);
    game->setMainPlayer(soldier);
    soldier->moveRight(true);
    raider->moveLeft(true);
    raider->jump(true);
    for (int frame = 0; frame < 40; ++frame) {
        soldier->aim(raider->getCentralX(), raider->getCentralY());
        soldier->fire(raider->getCentralX(), raider->getCentralY());
        raider->fire(soldier->getCentralX(), soldier->getCentralY());
        if (frame == 20) {
            soldier->setEquipment(2);
            soldier->jump(true);
        }
        game->playFrame(buffer, 0);
    }
    // The next input starts from an empty level, even if its map is refused.
    game->loadMap(emptyMapPath.c_str());
    return 0;
}
