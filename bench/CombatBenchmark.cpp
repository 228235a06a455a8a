// One frame of combat on the meadow level, as the main loop runs it: 20 players exchange fire
// and grenades, bullets fly, grenades bounce and explode, blood piles up (it lives a minute, far
// longer than the scene), fire stars flash; every frame moves the world and the sight, draws it
// all into an 800 x 600 buffer, reaps the dead and moves the camera.
//
//   build/bench/CombatBenchmark        (run from anywhere; it finds data/ itself)
//
// Each benchmark iteration is one frame of a 600-frame scene. Besides the mean, the counters give
// the median, the 90th percentile and the slowest frame, and what the world held at the end.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <random>
#include <vector>

#include "actors/Blood.h"
#include "actors/Grenade.h"
#include "actors/GrenadeThrown.h"
#include "actors/Gun.h"
#include "actors/Player.h"
#include "core/Game.h"

using Grevan::Game;
using Grevan::Player;

namespace {

const int kPlayers = 20;
const int kSceneFrames = 600;
const int kGunSlot = 1;
const int kGrenadeSlot = 3;
const int kThrowEvery = 90;          // frames between a player's grenades
const int kFuseFrames = 66;          // a second at the game's pace; the real fuse is wall-clock
const int kEndlessHealth = 1000000;  // everybody keeps fighting for the whole scene

class CombatScene {
  public:
    CombatScene() : game(Grevan::StartMode::HEADLESS), buffer(create_bitmap(800, 600)) {
        game.getMapSystem().setClientWidth(800);
        game.getMapSystem().setClientHeight(600);
        game.loadMap("maps/meadow.map");
        for (int i = 0; i < kPlayers; i++) {
            Player* p = new Player("fighter", i % 2 == 0 ? "soldier" : "raider");
            p->setX(100 + i * 105);
            p->setY(150);
            p->setHealth(kEndlessHealth);
            p->show();
            arm(p);
            game.addPlayer(p);
        }
        game.setMainPlayer(game.getPlayers()[kPlayers / 2]);
        // Everybody lands and loads before the first measured frame.
        for (int i = 0; i < 120; i++) {
            game.playFrame(buffer, 0);
        }
    }
    ~CombatScene() {
        game.getObjectSystem().cleanupObjects();
        destroy_bitmap(buffer);
    }

    void frame() {
        giveOrders();
        lightFuses();
        game.playFrame(buffer, 0);
        frameNumber++;
    }

    int count(bool (*isKind)(Grevan::Object*)) {
        const std::vector<Grevan::Object*>& objects = game.getObjectSystem().getObjects();
        return static_cast<int>(std::count_if(objects.begin(), objects.end(), isKind));
    }

    Game game;
    BITMAP* buffer;

  private:
    static void arm(Player* p) {
        auto* gun = new Grevan::Gun(p);
        gun->addBullets(100000);
        p->setWeapon(kGunSlot, gun);
        auto* grenades = new Grevan::Grenade(p);
        grenades->addBullets(1000);
        p->setWeapon(kGrenadeSlot, grenades);
        p->setEquipment(kGunSlot);
    }

    // Each player holds the trigger on another, a little off the mark, and now and then throws
    // a grenade at it instead.
    void giveOrders() {
        std::vector<Player*>& players = game.getPlayers();
        std::uniform_int_distribution<int> offset(-30, 30);
        for (int i = 0; i < kPlayers; i++) {
            Player* p = players[i];
            Player* target = players[(i + 1 + frameNumber / 100) % kPlayers];
            if (target == p) {
                target = players[(i + 1) % kPlayers];
            }
            int x = target->getCentralX() + offset(random);
            int y = target->getCentralY() + offset(random);
            bool throwing = (frameNumber + i * 7) % kThrowEvery == 0;
            p->setEquipment(throwing ? kGrenadeSlot : kGunSlot);
            p->aim(x, y - (throwing ? 120 : 0));
            p->fire(x, y - (throwing ? 120 : 0));
        }
    }

    // The fuse counts whole wall-clock seconds, which a fast benchmark never lets pass; here a
    // grenade explodes a second of game time (66 frames) after its throw.
    void lightFuses() {
        for (Grevan::Object* o : game.getObjectSystem().getObjects()) {
            if (auto* grenade = dynamic_cast<Grevan::GrenadeThrown*>(o)) {
                if (++grenadeAges[grenade->getId()] == kFuseFrames) {
                    grenade->bomb();
                }
            }
        }
    }

    int frameNumber = 0;
    std::mt19937 random{5};
    std::map<int, int> grenadeAges;
};

bool isBlood(Grevan::Object* o) {
    return dynamic_cast<Grevan::Blood*>(o) != nullptr;
}

void BM_CombatFrame(benchmark::State& state) {
    // The game reads its pictures, map and sounds from data/.
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        state.SkipWithError("cannot enter data/");
        return;
    }
    auto scene = std::make_unique<CombatScene>();
    std::vector<double> frameMilliseconds;
    for (auto _ : state) {
        if (frameMilliseconds.size() % kSceneFrames == 0 && !frameMilliseconds.empty()) {
            state.PauseTiming();
            scene.reset();
            scene = std::make_unique<CombatScene>();
            state.ResumeTiming();
        }
        auto start = std::chrono::steady_clock::now();
        scene->frame();
        auto end = std::chrono::steady_clock::now();
        frameMilliseconds.push_back(std::chrono::duration<double, std::milli>(end - start).count());
    }
    state.counters["objects"] = scene->game.getObjectSystem().getObjectCount();
    state.counters["blood"] = scene->count(isBlood);
    std::sort(frameMilliseconds.begin(), frameMilliseconds.end());
    auto at = [&frameMilliseconds](double share) {
        return frameMilliseconds[static_cast<size_t>(share * (frameMilliseconds.size() - 1))];
    };
    state.counters["median_ms"] = at(0.5);
    state.counters["p90_ms"] = at(0.9);
    state.counters["max_ms"] = frameMilliseconds.back();
}

}  // namespace

BENCHMARK(BM_CombatFrame)->Iterations(kSceneFrames)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
