// One frame of combat on the meadow level, as the main loop runs it: 20 players exchange fire
// and grenades, bullets fly, grenades bounce and explode, blood piles up (it lives a minute, far
// longer than the scene), fire stars flash; every frame moves the world and the sight, draws it
// all into an 800 x 600 buffer, reaps the dead and moves the camera.
//
//   build/bench/CombatBenchmark        (run from anywhere; it finds data/ itself)
//
// BM_WholeFrame adds what else reaches the screen in the main loop: the status bar, a speech
// bubble, the guide robot, the sight (shown in the frames the bubble does not hide it) and a fade
// in progress, with the buffer copied to a second page as flip does.
//
// Each benchmark iteration is one frame of a 600-frame scene. Besides the mean, the counters give
// the median, the 90th and 99th percentiles and the slowest frame, and what the world held at the
// end.
#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
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

// What a scene draws besides the world.
enum class Presentation { WORLD, WHOLE_FRAME };

class CombatScene {
  public:
    explicit CombatScene(Presentation presentation)
        : game(Grevan::StartMode::HEADLESS), presentation(presentation) {
        game.getMapSystem().setClientWidth(800);
        game.getMapSystem().setClientHeight(600);
        // The screen's buffer and pages are memory bitmaps, as a headless game allows.
        game.getScreen().adoptPages(create_bitmap(800, 600), create_bitmap(800, 600),
                                    create_bitmap(800, 600));
        buffer = game.getScreen().getBufferPage();
        game.loadMap("maps/meadow.map");
        for (int i = 0; i < kPlayers; i++) {
            Player* p = new Player("fighter", i % 2 == 0 ? "soldier" : "raider");
            p->setX(100 + i * 105);
            p->setY(150);
            p->setHealth(kEndlessHealth);
            p->show();
            arm(p);
            game.addPlayer(std::unique_ptr<Player>(p));
        }
        game.setMainPlayer(game.getPlayers()[kPlayers / 2]);
        if (presentation == Presentation::WHOLE_FRAME) {
            present();
        }
        // Everybody lands and loads before the first measured frame.
        for (int i = 0; i < 120; i++) {
            game.playFrame(buffer, 0);
        }
    }
    ~CombatScene() { game.getObjectSystem().cleanupObjects(); }

    void frame() {
        giveOrders();
        lightFuses();
        if (presentation == Presentation::WHOLE_FRAME) {
            keepPresenting();
        }
        game.playFrame(buffer, 0);
        if (presentation == Presentation::WHOLE_FRAME) {
            game.getScreen().flip();
        }
        frameNumber++;
    }

    int count(bool (*isKind)(Grevan::Object*)) {
        const std::vector<Grevan::Object*>& objects = game.getObjectSystem().getObjects();
        return static_cast<int>(std::count_if(objects.begin(), objects.end(), isKind));
    }

    Game game;
    BITMAP* buffer;

  private:
    void present() {
        game.getInfoBar().initialize();
        game.getInfoBar().show();
        game.createRobot();
        game.getRobot()->show();
        game.getAimSystem().setX(400);
        game.getAimSystem().setY(300);
        game.getScreen().fadeIn();
    }

    // The fade starts again when it ends; a bubble speaks for 100 frames, then the sight shows
    // for 50.
    void keepPresenting() {
        if (game.getScreen().getFadeMode() == Grevan::FADE_SHOWN) {
            game.getScreen().fadeIn();
        }
        if (frameNumber % 150 == 0) {
            Player* speaker = game.getMainPlayer();
            game.getDialog()
                .setDelay(100)
                .setPosition(speaker->getCentralX(), speaker->getY())
                .setText("Hold the bridge!\nThey are coming from both sides.")
                .show();
        }
    }

    static void arm(Player* p) {
        auto* gun = new Grevan::Gun(p);
        gun->addBullets(100000);
        p->setWeapon(kGunSlot, std::unique_ptr<Grevan::Gun>(gun));
        auto* grenades = new Grevan::Grenade(p);
        grenades->addBullets(1000);
        p->setWeapon(kGrenadeSlot, std::unique_ptr<Grevan::Grenade>(grenades));
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

    Presentation presentation;
    int frameNumber = 0;
    std::mt19937 random{5};
    std::map<int, int> grenadeAges;
};

bool isBlood(Grevan::Object* o) {
    return dynamic_cast<Grevan::Blood*>(o) != nullptr;
}

// CPU time of this thread: on a machine shared with other work, wall-clock frames would count
// the time other processes held the core.
double threadMilliseconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

void playScene(benchmark::State& state, Presentation presentation) {
    // The game reads its pictures, map and sounds from data/.
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        state.SkipWithError("cannot enter data/");
        return;
    }
    auto scene = std::make_unique<CombatScene>(presentation);
    std::vector<double> frameMilliseconds;
    for (auto _ : state) {
        if (frameMilliseconds.size() % kSceneFrames == 0 && !frameMilliseconds.empty()) {
            state.PauseTiming();
            scene.reset();
            scene = std::make_unique<CombatScene>(presentation);
            state.ResumeTiming();
        }
        double start = threadMilliseconds();
        scene->frame();
        frameMilliseconds.push_back(threadMilliseconds() - start);
    }
    state.counters["objects"] = scene->game.getObjectSystem().getObjectCount();
    state.counters["blood"] = scene->count(isBlood);
    std::sort(frameMilliseconds.begin(), frameMilliseconds.end());
    auto at = [&frameMilliseconds](double share) {
        return frameMilliseconds[static_cast<size_t>(share * (frameMilliseconds.size() - 1))];
    };
    state.counters["median_ms"] = at(0.5);
    state.counters["p90_ms"] = at(0.9);
    state.counters["p99_ms"] = at(0.99);
    state.counters["max_ms"] = frameMilliseconds.back();
}

void BM_CombatFrame(benchmark::State& state) {
    playScene(state, Presentation::WORLD);
}

void BM_WholeFrame(benchmark::State& state) {
    playScene(state, Presentation::WHOLE_FRAME);
}

}  // namespace

BENCHMARK(BM_CombatFrame)->Iterations(kSceneFrames)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WholeFrame)->Iterations(kSceneFrames)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
