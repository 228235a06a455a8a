#include <cstdio>

#include "core/Game.h"

// The game is never deleted: the process ends with it alive, and Allegro's exit hook shuts the
// library down.
int main() {
    Grevan::Game* game = new Grevan::Game();
    printf("Starting Grevan ...\n");
    fflush(stdout);
    set_window_title("Collision Test");
    if (!game->start()) {
        printf("Failed to start game.\n");
    }
    return 0;
}
