#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "ReachAnalysis.h"
#include "ReachOverlay.h"
#include "ReachReplay.h"
#include "ReachWorker.h"
#include "support/HeadlessGame.h"

namespace {

using ReachTest = HeadlessGame;
using Pieces = std::vector<ReachPiece>;

// The figures below come from the game's constants: a jump is a momentum of 300 on a mass of 50,
// 6 pixels a frame upward; gravity takes 0.12 a frame, and starts one frame late after take-off,
// so the feet rise 6 + 6 + 6 + (5.88 + 5.76 + ... + 0.12) = 18 + 147 = 165 pixels. A landing on
// a ledge's corner lifts the body by less than its sideways overlap, at most 5.3 + 1 pixels a
// frame while the jump still rises the full height (the speed cap of 8 takes height from a
// faster one): nothing higher than about 172 pixels above the feet can be stood on. Walking
// adds 0.2 a frame and friction takes 0.12, so the top speed is 8 - 0.12 = 7.88 after 98 frames
// and some 385 pixels of run; jumping at it, the cap of 8 leaves (6.37, -4.85), about 85 frames
// in the air at 6.37 + 1 pixels a frame of steering: 621 pixels of reach, plus the 32 of the
// player's width for a gap. The floors are 0 to 1000 (80 high) at y = 500 unless a case says.
const ReachPiece kFloor{0, 500, 1000, 80};

struct KnownCase {
    const char* what;
    Pieces pieces;
    ReachPoint start;   // the feet
    ReachPoint target;  // a point above the surface in question
    bool reachable;
};

TEST_F(ReachTest, KnowsTheLimitsOfJumpsGapsPitsAndCeilings) {
    const ReachPiece step{600, 350, 400, 150};  // 150 above the floor, against its right end
    const KnownCase cases[] = {
        {"a ledge 155 above the floor", {kFloor, {300, 345, 120, 24}}, {100, 499}, {360, 340}, true},
        {"a ledge 180 above the floor", {kFloor, {300, 320, 120, 24}}, {100, 499}, {360, 315}, false},
        {"a gap of 600 after a long run", {kFloor, {1600, 500, 600, 80}}, {100, 499}, {1900, 495}, true},
        {"a gap of 700 after a long run", {kFloor, {1700, 500, 600, 80}}, {100, 499}, {2000, 495}, false},
        // A pit 200 wide and 200 deep between floors 400 high: out of reach of a jump, not of a
        // jump from a crate 80 high in it.
        {"a pit 200 deep",
         {{0, 500, 400, 400}, {600, 500, 400, 400}, {400, 700, 200, 80}},
         {500, 699},
         {200, 495},
         false},
        {"a pit 200 deep with a crate",
         {{0, 500, 400, 400}, {600, 500, 400, 400}, {400, 700, 200, 80}, {520, 620, 80, 80}},
         {450, 699},
         {200, 495},
         true},
        {"a step 150 high", {{0, 500, 600, 80}, step}, {100, 499}, {800, 345}, true},
        // The head stops at the ceiling's bottom, 180 above the floor, when the feet are 180 - 48
        // = 132 above it: short of the step, and there is no room to stand under the ceiling on
        // the step (30 pixels).
        {"a step 150 high under a ceiling 180 above the floor",
         {{0, 500, 600, 80}, step, {0, 300, 620, 20}},
         {100, 499},
         {800, 345},
         false},
    };
    ReachAnalysis analysis;
    for (const KnownCase& known : cases) {
        const ReachLevel level(2400, 1000, known.pieces);
        const ReachResult result = analysis.run(level, known.start);
        const int span = level.spanBelow(known.target.x, known.target.y);
        ASSERT_GE(span, 0) << known.what;
        EXPECT_EQ(result.spans[span].reachable, known.reachable) << known.what;
        EXPECT_FALSE(result.bounded) << known.what;
    }
}

// An editor asks again after every edit: the answer it gets is for the level as last asked, never
// a search of an older version finishing after it. The second request, a short floor the player
// soon falls off, comes while the first, a long level, is still being searched.
TEST_F(ReachTest, WorkerAnswersTheLatestRequestForTheLevelAsLastAsked) {
    ReachWorker worker;
    const auto asked = [](Pieces pieces, long tag) {
        return ReachJob{std::make_shared<const ReachLevel>(2400, 1000, std::move(pieces)), {100, 499}, tag};
    };
    worker.request(asked({{0, 500, 2400, 80}, {300, 345, 120, 24}}, 1));
    worker.request(asked({{0, 500, 200, 80}}, 2));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while ((worker.isSearching() || !worker.latest()) && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    const std::shared_ptr<const ReachAnswer> answer = worker.latest();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->job.tag, 2);
    EXPECT_EQ(answer->result.spans.size(), answer->job.level->getSpans().size());
    EXPECT_EQ(answer->result.spans.size(), 8u);  // a floor of 200 pixels in spans of 25
    EXPECT_FALSE(answer->result.cancelled);
}

// The editor draws the overlay over a view with a camera and a zoom: a level point p lands on
// (p - camera) * zoom, bars end where the next level pixel starts, and the start is a cross.
TEST_F(ReachTest, OverlayPlacesSpansStartAndPathThroughCameraAndZoom) {
    ReachResult result;
    result.start = ReachPoint{30, 40};
    result.spans = {{ReachSpan{20, 44, 50}, true, {}}, {ReachSpan{45, 60, 50}, false, {}}};
    BITMAP* view = create_bitmap(100, 100);
    clear_to_color(view, 0);
    drawReachOverlay(view, result, 10, 20, 2.0f, {{30, 40}, {40, 40}});
    // x, y on the view and the colour expected there.
    const std::tuple<int, int, int> pixels[] = {
        {19, 60, 0},                    // left of the first span: (20 - 10) * 2 = 20
        {20, 60, reachableColour()},    // the surface's row: (50 - 20) * 2
        {69, 57, reachableColour()},    // the last pixel of the first span: (45 - 10) * 2 - 1, bar top
        {69, 56, 0},                    // above the bar
        {70, 60, unreachableColour()},  // the second span
        {99, 60, unreachableColour()},  // (60 - 10) * 2 lies beyond the view
        {40, 40, startColour()},        // the start: (30 - 10) * 2, (40 - 20) * 2
        {47, 41, startColour()},        // an arm of the cross, thick 3
        {55, 40, pathColour()},         // the path to (40, 40): (60, 40)
    };
    for (auto [x, y, colour] : pixels) {
        EXPECT_EQ(getpixel(view, x, y), colour) << x << ", " << y;
    }
    destroy_bitmap(view);
}

// Where the level scripts put their characters and boxes (data/script/levels/*.fb), as the `vesk`
// dry run of each level's setup prints them (from data/: `../build/vesk script/main.fb
// FortressSetup`): a character added at addPlayer(..., X, Y) stands with its feet at (X + 16,
// Y + 47), 3 pixels above the surface 50 below Y (it is 48 high); a box of addPresent(KIND, X, Y)
// is named by the middle of its top edge, X + 15 (the pictures are 30 wide), and a hidden one of
// addHiddenPresent(X, Y, W, H) by (X + W / 2, Y).
struct Placed {
    std::string who;
    ReachPoint at;
    const char* outOfReachBecause = nullptr;  // null: the hero must be able to stand there
};

struct ShippedLevel {
    const char* map;
    ReachPoint heroStart;
    std::vector<Placed> boxes;
    std::vector<Placed> foes;
};

ReachPoint feetOn(int x, int floor) {
    return ReachPoint{x + 16, floor - 3};
}

const ShippedLevel kShippedLevels[] = {
    {"maps/meadow.map",
     feetOn(100, 520),
     {{"ammo", {315, 480}}, {"medkit", {1715, 480}}, {"hidden grenades", {2320, 370}}},
     {{"Scout", feetOn(740, 520)},
      {"Raider", feetOn(1100, 480)},
      {"Lookout", feetOn(1208, 400)},
      {"Sentry", feetOn(1968, 380)}}},
    {"maps/harbour.map",
     feetOn(100, 520),
     {{"medkit", {1315, 480}},
      {"ammo", {1435, 410}},
      {"medkit", {2465, 480}},
      {"hidden grenades", {3110, 330}}},
     {{"Bosun", feetOn(574, 460)},
      {"Deckhand", feetOn(1004, 480)},
      {"Lookout", feetOn(1388, 440)},
      {"Gunner", feetOn(1724, 480)},
      {"Sailor", feetOn(1948, 420)},
      {"Porter", feetOn(2314, 456)},
      {"Mate", feetOn(2628, 440)}}},
    {"maps/fortress.map",
     feetOn(100, 520),
     {{"medkit", {1565, 480}},
      {"ammo", {1625, 480}},
      {"medkit", {2615, 480}},
      {"grenades", {2175, 390}},
      {"hidden grenades", {3140, 490}}},
     {{"Sentry", feetOn(650, 520)},
      {"Sentry at his post", feetOn(820, 520)},
      {"Guard", feetOn(588, 430)},
      {"Guard", feetOn(1128, 440)},
      {"Guard", feetOn(1984, 472)},
      {"Rask", feetOn(2088, 420)},
      {"Guard", feetOn(2408, 520)},
      {"Guard", feetOn(2948, 430)},
      {"Guard", feetOn(3204, 472)}}},
};

// Each span the analysis calls reachable, the game's own loop puts the player on by the witness,
// and every box and opponent of the campaign is where the hero can go (or listed with why not).
TEST_F(ReachTest, ShippedLevelsWitnessesReplayAndEveryBoxAndOpponentCanBeReached) {
    BITMAP* small = create_bitmap(8, 8);  // replays need no picture of the frames
    ReachAnalysis analysis;
    for (const ShippedLevel& shipped : kShippedLevels) {
        game->loadMap(shipped.map);
        const ReachLevel level = ReachLevel::of(*game);
        const ReachResult result = analysis.run(level, shipped.heroStart);
        EXPECT_FALSE(result.bounded) << shipped.map;
        for (std::size_t span = 0; span < result.spans.size(); ++span) {
            const ReachSpanResult& found = result.spans[span];
            if (!found.reachable) {
                continue;
            }
            const std::vector<int> standing =
                replayWitness(*game, level, shipped.heroStart, found.witness, "soldier", small);
            EXPECT_NE(std::find(standing.begin(), standing.end(), static_cast<int>(span)), standing.end())
                << shipped.map << ": " << found.span.left << "-" << found.span.right << " " << found.span.y
                << " by " << witnessText(found.witness);
        }
        for (const std::vector<Placed>* placed : {&shipped.boxes, &shipped.foes}) {
            for (const Placed& thing : *placed) {
                const int span = level.spanBelow(thing.at.x, thing.at.y);
                const bool reachable = span >= 0 && result.spans[span].reachable;
                EXPECT_EQ(reachable, thing.outOfReachBecause == nullptr)
                    << shipped.map << ": " << thing.who << " at " << thing.at.x << ", " << thing.at.y;
            }
        }
    }
    destroy_bitmap(small);
}

}  // namespace
