// Loading a level whose pieces all name one large picture: 2,000 pieces of one 480 x 480 picture in a
// 32768 x 2048 level, loaded through Game::loadMap on a headless game.
//
//   build/bench/MapLoadBenchmark
//   /usr/bin/time -v build/bench/MapLoadBenchmark   (its "Maximum resident set size" is one level's)
//
// The level's files are written into a folder of their own under the system's temporary folder,
// which becomes the working directory, as data/ is the game's.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "core/Game.h"

namespace {

const int kPieces = 2000;
const int kPictureSize = 480;  // pixels, each way

// Makes a game folder holding image/object/large.bmp and large.map, works from it and returns it.
std::filesystem::path enterLevelFolder() {
    std::string folder = (std::filesystem::temp_directory_path() / "grevan-mapload-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::perror("level folder");
        std::exit(1);
    }
    std::filesystem::current_path(folder);
    std::filesystem::create_directories("image/object");
    BITMAP* picture = create_bitmap(kPictureSize, kPictureSize);
    clear_to_color(picture, makecol(120, 90, 60));
    save_bitmap("image/object/large.bmp", picture, nullptr);
    destroy_bitmap(picture);
    std::ofstream map("large.map");
    map << "0 32768 2048 150 204 236 " << kPieces << "\n";
    for (int i = 0; i < kPieces; ++i) {
        map << "large.bmp 1 " << i % 2 << " " << (i * 16) % 32768 << " " << (i / 2048) * 500 << " 0 0 0 0\n";
    }
    return folder;
}

void BM_LoadMapOfOnePicture(benchmark::State& state) {
    Grevan::Game game(Grevan::StartMode::HEADLESS);
    const std::filesystem::path folder = enterLevelFolder();
    for (auto _ : state) {
        game.loadMap("large.map");
        benchmark::DoNotOptimize(game.getObjectSystem().getObjectCount());
    }
    game.getObjectSystem().cleanupObjects();
    std::filesystem::current_path(folder.parent_path());
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_LoadMapOfOnePicture)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
