// One frame of the world, as the main loop runs it: move every object (with its collisions
// through the block map), draw them all into an 800 x 600 buffer, reap the dead.
//
//   build/bench/WorldBenchmark
//
// Each benchmark iteration is one frame. A scene is played for a fixed number of frames and then
// set up again with the clock stopped, so the figure is the mean over the scene's whole course.
#include <benchmark/benchmark.h>

#include <memory>
#include <random>

#include "core/Game.h"
#include "world/RealBody.h"

using Grevan::Game;
using Grevan::Object;
using Grevan::RealBody;

namespace {

const int kScreenWidth = 800;
const int kScreenHeight = 600;

// An object of some kind with a plain picture of its own, so that drawing costs what it would.
template <typename Kind>
class Painted : public Kind {
  public:
    Painted(int width, int height, int colour) {
        this->image = create_bitmap(width, height);
        clear_to_color(this->image, colour);
        this->width = width;
        this->height = height;
    }
};

// A world of its own in a headless game, with a buffer to draw the frame into.
class World {
  public:
    World(int width, int height)
        : game(Grevan::StartMode::HEADLESS), buffer(create_bitmap(kScreenWidth, kScreenHeight)) {
        game.getMapSystem().initialize(width, height);
        game.getBlockSystem().initialize(width, height);
        game.getMapSystem().setBackgroundColor(150, 204, 236);
    }
    ~World() {
        game.getObjectSystem().cleanupObjects();
        destroy_bitmap(buffer);
    }

    // A solid, visible piece in the registry.
    template <typename Kind>
    Kind* add(int x, int y, int width, int height, int colour) {
        Kind* o = new Painted<Kind>(width, height, colour);
        o->setX(x);
        o->setY(y);
        o->setCollidable(true);
        o->show();
        game.getObjectSystem().addObject(std::unique_ptr<Object>(o));
        return o;
    }

    Object* addPiece(int x, int y, int width, int height) {
        return add<Object>(x, y, width, height, makecol(120, 90, 60));
    }

    RealBody* addBody(int x, int y, int width, int height) {
        int shade = 60 + (x * 7 + y * 3) % 160;
        return add<RealBody>(x, y, width, height, makecol(shade, 90, 200 - shade / 2));
    }

    void frame(int cameraX) {
        Grevan::ObjectSystem& objects = game.getObjectSystem();
        objects.moveObjects();
        objects.drawObjects(buffer, cameraX, 0);
        objects.removeDeadObjects();
    }

    Game game;
    BITMAP* buffer;
};

// 2,000 bodies of 4 to 40 pixels fall onto the floor and platforms of a 4,000 x 600 level. They
// start in columns high above it, so the upper ones land on the lower ones.
std::unique_ptr<World> makeRainScene() {
    auto world = std::make_unique<World>(4000, 600);
    world->addPiece(0, 560, 4000, 40);
    for (int i = 0; i < 24; ++i) {
        world->addPiece(80 + i * 160, 220 + (i * 97) % 260, 120, 16);
    }
    std::mt19937 random(7);
    std::uniform_int_distribution<int> size(4, 40);
    const int columns = 90;
    const int spacing = 44;
    for (int i = 0; i < 2000; ++i) {
        int column = i % columns;
        int row = i / columns;
        world->addBody(10 + column * spacing, 160 - row * spacing, size(random), size(random));
    }
    return world;
}

// A pool: 3,000 bodies of 2 to 10 pixels stand in 40 stacks on a floor 400 pixels wide, and 300
// more fall into it.
struct Pool {
    std::unique_ptr<World> world;
    std::vector<RealBody*> falling;
    std::mt19937 random{11};
};

const int kPoolLeft = 400;
const int kLaneWidth = 10;
const int kLanes = 40;

void dropIntoPool(Pool& pool) {
    std::uniform_int_distribution<int> size(2, 10);
    pool.falling.clear();
    for (int i = 0; i < 300; ++i) {
        int lane = i % kLanes;
        int row = i / kLanes;
        pool.falling.push_back(pool.world->addBody(kPoolLeft + lane * kLaneWidth, -140 + row * 18,
                                                   size(pool.random), size(pool.random)));
    }
}

std::unique_ptr<Pool> makePoolScene() {
    auto pool = std::make_unique<Pool>();
    pool->world = std::make_unique<World>(1200, 600);
    Object* floor = pool->world->addPiece(300, 560, 600, 40);
    std::uniform_int_distribution<int> size(2, 10);
    for (int lane = 0; lane < kLanes; ++lane) {
        Object* below = floor;
        for (int k = 0; k < 3000 / kLanes; ++k) {
            int width = size(pool->random);
            int height = size(pool->random);
            // Put on top with the one pixel of overlap of a landed body, and landed.
            RealBody* body = pool->world->addBody(kPoolLeft + lane * kLaneWidth, below->getY() - height + 1,
                                                  width, height);
            body->handleCollision(Grevan::SIDE_BOTTOM, below);
            below = body;
        }
    }
    dropIntoPool(*pool);
    return pool;
}

void BM_RainOntoPlatforms(benchmark::State& state) {
    const int framesPerScene = 200;  // by then every body has landed
    std::unique_ptr<World> world = makeRainScene();
    int frame = 0;
    for (auto _ : state) {
        if (frame == framesPerScene) {
            state.PauseTiming();
            world.reset();
            world = makeRainScene();
            frame = 0;
            state.ResumeTiming();
        }
        world->frame(1600);
        ++frame;
    }
    state.counters["objects"] = world->game.getObjectSystem().getObjectCount();
}
BENCHMARK(BM_RainOntoPlatforms)->Unit(benchmark::kMillisecond);

void BM_PoolOfSmallBodies(benchmark::State& state) {
    const int framesPerDrop = 80;  // by then nearly all of the batch has landed
    std::unique_ptr<Pool> pool = makePoolScene();
    int frame = 0;
    for (auto _ : state) {
        if (frame == framesPerDrop) {
            // The fallen are taken away and a new batch is dropped: the pool stays as it was.
            state.PauseTiming();
            for (RealBody* body : pool->falling) {
                body->die();
            }
            pool->world->game.getObjectSystem().removeDeadObjects();
            dropIntoPool(*pool);
            frame = 0;
            state.ResumeTiming();
        }
        pool->world->frame(200);
        ++frame;
    }
    state.counters["objects"] = pool->world->game.getObjectSystem().getObjectCount();
}
BENCHMARK(BM_PoolOfSmallBodies)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
