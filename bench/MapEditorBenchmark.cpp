// The level editor's speed: one redraw of its level view and palette on the largest shipped level
// (fortress.map, 3400 x 600) at each zoom, with outlines and a piece selected, and opening and
// saving a level of 100,000 pieces (the most the game takes).
//
//   build/bench/MapEditorBenchmark
//
// A redraw should fit in one game frame (15 ms); an open or a save in a second.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "EditorView.h"
#include "EditorWindow.h"
#include "MapEditor.h"
#include "PicturePalette.h"
#include "core/Game.h"

namespace {

const int kManyPieces = 100000;

void BM_RedrawFortress(benchmark::State& state) {
    Grevan::Game game(Grevan::StartMode::HEADLESS);
    std::filesystem::current_path(GREVAN_SOURCE_DIR "/data");
    EditorView view;
    PicturePalette palette("image/object");
    MapEditor editor([&view](const std::string& image) { return view.getPieceSize(image); });
    LevelDocument level;
    std::string error;
    int dropped = 0;
    if (!level.read("maps/fortress.map", error, dropped)) {
        state.SkipWithError(error.c_str());
        return;
    }
    editor.open(level);
    editor.clickAt(1700, 590, false);
    BITMAP* window = create_bitmap(EditorWindow::kWidth, EditorWindow::kHeight);
    BITMAP* levelView = create_sub_bitmap(window, 0, 0, EditorWindow::kViewWidth, EditorWindow::kViewHeight);
    BITMAP* pictures = create_sub_bitmap(window, EditorWindow::kViewWidth, 0, PicturePalette::kWidth,
                                         EditorWindow::kViewHeight);
    const int zoomShift = static_cast<int>(state.range(0));
    // Zoomed out, the whole level; one to one, the screen round the middle of the level.
    const ViewTransform camera{zoomShift == 0 ? 1300 : 0, 0, zoomShift};
    ViewOptions options;
    options.mouse = LevelPoint{1700, 300};
    for (auto _ : state) {
        view.draw(levelView, editor, camera, options);
        palette.draw(pictures, view);
    }
    destroy_bitmap(pictures);
    destroy_bitmap(levelView);
    destroy_bitmap(window);
}
BENCHMARK(BM_RedrawFortress)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// A folder of its own under the system's temporary folder, with many.map: 100,000 pieces.
std::string writeManyPieces() {
    std::string folder = (std::filesystem::temp_directory_path() / "grevan-mapedit-XXXXXX").string();
    if (!mkdtemp(folder.data())) {
        std::perror("level folder");
        std::exit(1);
    }
    std::ofstream map(folder + "/many.map");
    map << "1\n32768 2048\n10 20 30\n" << kManyPieces << "\n";
    for (int i = 0; i < kManyPieces; ++i) {
        map << "crate.bmp 0 " << i % 2 << " " << (i * 37) % 32768 << " " << (i * 11) % 2048 << " 0 0 0 0\n";
    }
    return folder;
}

void BM_OpenManyPieces(benchmark::State& state) {
    const std::string folder = writeManyPieces();
    for (auto _ : state) {
        LevelDocument level;
        std::string error;
        int dropped = 0;
        level.read(folder + "/many.map", error, dropped);
        benchmark::DoNotOptimize(level.pieces.size());
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_OpenManyPieces)->Unit(benchmark::kMillisecond)->Iterations(5);

void BM_SaveManyPieces(benchmark::State& state) {
    const std::string folder = writeManyPieces();
    LevelDocument level;
    std::string error;
    int dropped = 0;
    level.read(folder + "/many.map", error, dropped);
    for (auto _ : state) {
        if (!level.save(folder + "/many.map", true, error)) {
            state.SkipWithError(error.c_str());
        }
    }
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_SaveManyPieces)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

BENCHMARK_MAIN();
