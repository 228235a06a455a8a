// The reach analysis of the largest shipped level, the fortress (3,400 x 600), from the hero's
// start, as mapview --reach and the level editor run it: the level's solid pieces taken from a
// headless game that loaded the map, then one whole search per iteration.
//
//   taskset -c 0 build/bench/ReachBenchmark
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "ReachAnalysis.h"
#include "core/Game.h"

namespace {

// The hero's feet at the start of the fortress level: placed at (100, 520 - 50) by the script,
// 32 x 48 pixels.
const ReachPoint kFortressStart{116, 517};

void BM_FortressFromItsStart(benchmark::State& state) {
    if (chdir(GREVAN_SOURCE_DIR "/data") != 0) {
        std::perror("data folder");
        std::exit(1);
    }
    Grevan::Game game(Grevan::StartMode::HEADLESS);
    game.loadMap("maps/fortress.map");
    const ReachLevel level = ReachLevel::of(game);
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

}  // namespace

BENCHMARK_MAIN();
