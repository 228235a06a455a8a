// The reach analysis of the largest shipped level, the fortress (3,400 x 600), from the hero's
// start, as mapview --reach and the level editor run it: the level's solid pieces taken from a
// headless game that loaded the map, then one whole search per iteration. And the editor's wait
// after an edit: a piece moved by a pixel, the level handed to the worker thread as the editor
// hands it over, until its answer is there: wall-clock time, and the CPU time of both threads.
//
//   taskset -c 0 build/bench/ReachBenchmark
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include "ReachAnalysis.h"
#include "ReachWorker.h"
#include "core/Game.h"

namespace {

// The hero's feet at the start of the fortress level: placed at (100, 520 - 50) by the script,
// 32 x 48 pixels.
const ReachPoint kFortressStart{116, 517};

// The game stays for as long as the analysis runs: the player's pictures belong to it.
struct Fortress {
    Fortress() : game(enterDataFolder()), level(loaded(game)) {}

    static Grevan::StartMode enterDataFolder() {
        if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
            std::perror("data folder");
            std::exit(1);
        }
        return Grevan::StartMode::HEADLESS;
    }

    static ReachLevel loaded(Grevan::Game& game) {
        game.loadMap("maps/fortress.map");
        return ReachLevel::of(game);
    }

    Grevan::Game game;
    const ReachLevel level;
};

void BM_FortressFromItsStart(benchmark::State& state) {
    Fortress fortress;
    const ReachLevel& level = fortress.level;
    ReachAnalysis analysis;
    ReachResult result;
    for (auto _ : state) {
        result = analysis.run(level, kFortressStart);
    }
    int reachable = 0;
    for (const ReachSpanResult& span : result.spans) {
        reachable += span.reachable;
    }
    state.counters["states"] = result.states;
    state.counters["spans"] = static_cast<double>(result.spans.size());
    state.counters["reachable"] = reachable;
    state.counters["bounded"] = result.bounded;
}
BENCHMARK(BM_FortressFromItsStart)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->Iterations(3);

void BM_FortressEditToOverlay(benchmark::State& state) {
    Fortress fortress;
    const ReachLevel& shipped = fortress.level;
    ReachWorker worker;
    long edits = 0;
    for (auto _ : state) {
        std::vector<ReachPiece> pieces = shipped.getSolids();
        pieces.back().x += ++edits % 2;
        worker.request(ReachJob{
            std::make_shared<const ReachLevel>(shipped.getWidth(), shipped.getHeight(), std::move(pieces)),
            kFortressStart, edits});
        while (!worker.latest() || worker.latest()->job.tag != edits) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
}
BENCHMARK(BM_FortressEditToOverlay)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime()
    ->Iterations(4);

}  // namespace

BENCHMARK_MAIN();
