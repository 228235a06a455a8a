#pragma once

#include <allegro.h>

#include <vector>

#include "ReachAnalysis.h"

// Draws what a search found over a picture of its level, which shows the level from the camera's
// corner (cameraX, cameraY) magnified by zoom: a level point p lands on (p - camera) * zoom.
// Reachable spans are blue bars on their surface, unreachable ones red, the start a yellow
// cross, and the path (feet positions frame by frame, ReachAnalysis::trace) an orange line.
// Sizes on the picture do not grow with the zoom, so that a zoomed-out view stays readable.
void drawReachOverlay(BITMAP* target, const ReachResult& result, int cameraX, int cameraY, float zoom,
                      const std::vector<ReachPoint>& path = {});

// The colours the overlay uses, for pictures and their tests.
int reachableColour();
int unreachableColour();
int startColour();
int pathColour();
