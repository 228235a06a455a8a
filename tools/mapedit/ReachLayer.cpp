#include "ReachLayer.h"

#include <algorithm>
#include <climits>
#include <filesystem>

#include "ReachOverlay.h"

namespace {

// Without a start point the search follows the mouse, once it has rested this long on one point:
// a sweep across the view asks nothing.
const auto kMouseRest = std::chrono::milliseconds(150);
const char* const kRole = "soldier";
// Level pixels above a span's row, at zoom 1, where the mouse counts as over it: the bar the
// overlay draws and a little more.
const int kHoverHeight = 8;

int clampedToInt(long long value) {
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

}  // namespace

ReachLayer::ReachLayer(const MapEditor& editor, EditorView& view) : editor(editor), view(view) {}

ReachLayer::~ReachLayer() = default;

bool ReachLayer::toggle(std::string& refusal) {
    if (!on && !worker) {
        // The player's pictures give it its size; without them there is nothing to search with.
        const std::string config = std::string("image/role/") + kRole + "/config.dat";
        std::error_code failure;
        if (!std::filesystem::exists(config, failure)) {
            refusal = "No " + config + ": run mapedit from the game's data folder";
            return false;
        }
        worker = std::make_unique<ReachWorker>(kRole);
        tracer = std::make_unique<ReachAnalysis>(kRole);
    }
    on = !on;
    asked.reset();
    return true;
}

std::optional<LevelPoint> ReachLayer::wantedStart() {
    if (const std::optional<LevelPoint> start = editor.getStartPoint()) {
        return start;
    }
    const auto now = std::chrono::steady_clock::now();
    if (!mouse) {
        return std::nullopt;
    }
    if (!restingMouse || restingMouse->x != mouse->x || restingMouse->y != mouse->y) {
        restingMouse = mouse;
        restingSince = now;
    }
    return now - restingSince >= kMouseRest ? restingMouse : std::nullopt;
}

std::shared_ptr<const ReachLevel> ReachLayer::levelAsEdited() {
    const LevelDocument& document = editor.getDocument();
    std::vector<ReachPiece> solids;
    for (int index = 0; index < static_cast<int>(document.pieces.size()); ++index) {
        const Grevan::MapPiece& piece = document.pieces[static_cast<size_t>(index)];
        // A piece without its picture collides with nothing in the game.
        if (piece.solid && view.getPicture(piece.image)) {
            const LevelRect area = editor.rectangleOf(index);
            solids.push_back(ReachPiece{area.left, area.top, area.right - area.left, area.bottom - area.top});
        }
    }
    return std::make_shared<const ReachLevel>(document.width, document.height, std::move(solids));
}

bool ReachLayer::update(std::optional<LevelPoint> mousePoint) {
    if (!on) {
        return false;
    }
    mouse = mousePoint;
    const std::optional<LevelPoint> start = wantedStart();
    if (start) {
        const ReachPoint feet{start->x, start->y};
        const bool levelChanged = !asked || asked->tag != editor.getRevision();
        if (levelChanged || asked->start.x != feet.x || asked->start.y != feet.y) {
            asked = ReachJob{levelChanged ? levelAsEdited() : asked->level, feet, editor.getRevision()};
            worker->request(*asked);
        }
    }
    std::shared_ptr<const ReachAnswer> latest = worker->latest();
    const bool searching = worker->isSearching();
    const bool news = latest != shown || searching != searchingShown;
    if (latest != shown) {
        shown = latest;
        tracedSpan = -1;
        path.clear();
    }
    searchingShown = searching;
    return news;
}

int ReachLayer::spanAt(const ReachAnswer& answer, const ViewTransform& transform) const {
    if (!mouse) {
        return -1;
    }
    const int height = kHoverHeight << transform.zoomShift;
    const std::vector<ReachSpanResult>& spans = answer.result.spans;
    for (int index = 0; index < static_cast<int>(spans.size()); ++index) {
        const ReachSpan& span = spans[static_cast<size_t>(index)].span;
        if (spans[static_cast<size_t>(index)].reachable && span.left <= mouse->x && mouse->x <= span.right &&
            span.y - height <= mouse->y && mouse->y <= span.y) {
            return index;
        }
    }
    return -1;
}

void ReachLayer::draw(BITMAP* target, const ViewTransform& transform) {
    if (!on || !shown) {
        return;
    }
    const int hovered = spanAt(*shown, transform);
    if (hovered != tracedSpan) {
        tracedSpan = hovered;
        path = hovered < 0 ? std::vector<ReachPoint>()
                           : tracer->trace(*shown->job.level, shown->job.start,
                                           shown->result.spans[static_cast<size_t>(hovered)].witness);
    }
    drawReachOverlay(target, shown->result, clampedToInt(transform.cameraX), clampedToInt(transform.cameraY),
                     1.0f / static_cast<float>(1 << transform.zoomShift), path);
}

std::string ReachLayer::status() const {
    if (!on) {
        return "";
    }
    if (searchingShown) {
        return "reach: computing...";
    }
    if (!shown) {
        return "reach: point where the player starts";
    }
    int reachable = 0;
    for (const ReachSpanResult& found : shown->result.spans) {
        reachable += found.reachable;
    }
    return "reach: " + std::to_string(reachable) + " of " + std::to_string(shown->result.spans.size()) +
           " spans";
}
