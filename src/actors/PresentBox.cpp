#include "actors/PresentBox.h"

#include "actors/Player.h"
#include "core/Game.h"

namespace Grevan {

PresentBox::PresentBox() {
    show();
}

void PresentBox::handleCollision(int, Object* other) {
    Game* game = Game::getInstance();
    Player* mainPlayer = game->getMainPlayer();
    // Without a main player nothing may match; a collected box stays in the block map until
    // the frame reaps it and must not be collected twice.
    if (!mainPlayer || isDead() || dynamic_cast<Player*>(other) != mainPlayer) {
        return;
    }
    game->getScriptSystem().raise("OnPresent", getId(), getX(), getY());
    mainPlayer->stopMoving();
    mainPlayer->stop();
    die();
}

}  // namespace Grevan
