#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "EditorView.h"
#include "LevelOverlay.h"
#include "MapEditor.h"
#include "ReachWorker.h"

// The reach analysis over the level view: where the player can stand from the start point (the
// author's, or the mouse's when none is set), searched again after every edit on a worker thread,
// and the witness path of the reachable span under the mouse. The window calls update() on every
// pass of its loop; it never waits for a search.
class ReachLayer : public LevelOverlay {
  public:
    // Reads the level through the editor and which pictures load through the view.
    ReachLayer(const MapEditor& editor, EditorView& view);
    ~ReachLayer() override;

    // Turns the overlay on (starting the worker the first time) or off; false with the reason in
    // refusal when it cannot start.
    bool toggle(std::string& refusal);
    bool isOn() const { return on; }
    // Asks for a search when the level or the start changed; mouse is the level point under the
    // mouse, if it is over the view. True when there is something new to show.
    bool update(std::optional<LevelPoint> mouse);
    void draw(BITMAP* target, const ViewTransform& view) override;
    // "reach: computing..." or "reach: R of N spans"; empty while the overlay is off.
    std::string status() const;

  private:
    std::optional<LevelPoint> wantedStart();
    std::shared_ptr<const ReachLevel> levelAsEdited();
    int spanAt(const ReachAnswer& shown, const ViewTransform& view) const;

    const MapEditor& editor;
    EditorView& view;
    bool on = false;
    std::unique_ptr<ReachWorker> worker;
    std::unique_ptr<ReachAnalysis> tracer;  // plays witnesses on the window's thread
    std::optional<LevelPoint> mouse;
    std::optional<ReachJob> asked;  // the latest request
    std::optional<LevelPoint> restingMouse;
    std::chrono::steady_clock::time_point restingSince;
    std::shared_ptr<const ReachAnswer> shown;
    bool searchingShown = false;
    int tracedSpan = -1;
    std::vector<ReachPoint> path;
};
