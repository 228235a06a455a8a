// libFuzzer targets over the game's file readers, on a headless game with the shipped data as
// working directory and a level without pieces at the start of every input. grevan_fuzz_map loads
// any bytes as a map file through Game::loadMap, then two armed players walk, jump, fire and switch
// weapons on the level for a few frames; grevan_fuzz_role (built with GREVAN_FUZZ_ROLE) reads them
// as a role description through Player::setRole (strip paths in it are relative to data/), then the
// player walks, turns and dies for a few frames.

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "actors/Grenade.h"
#include "actors/Gun.h"
#include "actors/Player.h"
#include "core/Game.h"

using Grevan::Player;

namespace {

Grevan::Game* game = nullptr;
BITMAP* buffer = nullptr;
std::string folder;  // where the fuzzed file goes
std::string emptyMapPath;

void playFrames(int count) {
    for (int frame = 0; frame < count; ++frame) {
        game->playFrame(buffer, 0);
    }
}

#ifdef GREVAN_FUZZ_ROLE
void play(const std::string& file) {
    std::filesystem::rename(file, folder + "/config.dat");
    // Climbing past the root is harmless, so enough ".." reach the folder from image/role.
    Player* p = new Player("fuzz", "../../../../../../../../../../../../../../../.." + folder);
    p->setX(100);
    p->setY(100);
    game->addPlayer(std::unique_ptr<Player>(p));
    p->moveRight(true);
    playFrames(10);
    p->moveLeft(true);
    playFrames(10);
    p->die();
    playFrames(10);
    p->setRole("soldier");
    playFrames(1);
}
#else
Player* addArmedPlayer(const char* role, int x) {
    Player* p = new Player("fuzz", role);
    p->setX(x);
    p->setWeapon(1, std::make_unique<Grevan::Gun>(p));
    p->setWeapon(2, std::make_unique<Grevan::Grenade>(p));
    for (int slot : {1, 2}) {
        p->getWeapon(slot)->addBullets(100);
    }
    p->setEquipment(1);
    game->addPlayer(std::unique_ptr<Player>(p));
    return p;
}

void play(const std::string& file) {
    game->loadMap(file.c_str());
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
        playFrames(1);
    }
}
#endif

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        std::abort();
    }
    folder = "/tmp/grevan-fuzz-" + std::to_string(getpid());
    std::filesystem::create_directories(folder);
    emptyMapPath = folder + "/empty.map";
    std::ofstream(emptyMapPath) << "0 800 600 0 0 0 0\n";
    game = new Grevan::Game(Grevan::StartMode::HEADLESS);
    buffer = create_bitmap(800, 600);
    game->getMapSystem().setClientWidth(800);
    game->getMapSystem().setClientHeight(600);
    game->loadMap(emptyMapPath.c_str());
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file = folder + "/input";
    std::ofstream(file, std::ios::binary).write(reinterpret_cast<const char*>(data), size);
    play(file);
    // The next input starts from an empty level, even if this one's map is refused.
    game->loadMap(emptyMapPath.c_str());
    return 0;
}
