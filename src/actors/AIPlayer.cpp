#include "actors/AIPlayer.h"

#include <cstdlib>

#include "core/Game.h"

namespace Grevan {

AIPlayer::AIPlayer(const std::string& name, const std::string& role) : Player(name, role) {}

void AIPlayer::move() {
    if (!underControl) {
        Object* board = getBoard();
        thinkTimer--;
        Player* target = Game::getInstance()->getMainPlayer();
        // Without a living main player the timer runs on below 0, so a decision follows as
        // soon as one lives again.
        if (thinkTimer < 1 && target && target->isAlive()) {
            decide();
            thinkTimer = kThinkEvery;
        }
        if (board && isPlayerActionOn()) {
            guardEdges(board);
        }
    }
    Player::move();
    // Orders to jump and fire last for exactly one move.
    jump(false);
    holdFire();
}

void AIPlayer::decide() {
    int r = rand() % 7;
    if (r <= 3) {
        shootIfInSight(Game::getInstance()->getMainPlayer());
    } else if (r == 4 && getBoard()) {
        PlayerAction walk;
        walk.type = ACTION_MOVE_TO;
        walk.x = Game::getInstance()->getMapSystem().getWidth();
        if ((rand() & 1) == 0) {
            walk.x = -walk.x;
        }
        setAction(walk);
    }
}

void AIPlayer::shootIfInSight(Player* target) {
    Game* game = Game::getInstance();
    if (!game->getMapSystem().inClient(getCentralX(), getCentralY())) {
        return;
    }
    // The line starts at the top-left corner, not the centre; the own colour is looked through.
    int hitX = 0;
    int hitY = 0;
    BlockSystem& blocks = game->getBlockSystem();
    if (!blocks.checkLineCollision(color, getX(), getY(), target->getCentralX(), target->getCentralY(), &hitX,
                                   &hitY) ||
        blocks.getObjectByPosition(hitX, hitY) != target) {
        return;
    }
    int y = target->getCentralY() + rand() % kShotSpread - kShotSpread / 2;
    int x = target->getCentralX() + rand() % kShotSpread - kShotSpread / 2;
    fire(x, y);
}

void AIPlayer::guardEdges(Object* board) {
    int fromLeftEnd = getX() - board->getX();
    if (fromLeftEnd <= getWidth() || fromLeftEnd + 2 * getWidth() > board->getWidth()) {
        stopAction();
        stop();
        animating = false;
    }
}

void AIPlayer::doMoveLeft() {
    aim(getCentralX() - getWidth(), getCentralY());
    Player::doMoveLeft();
}

void AIPlayer::doMoveRight() {
    aim(getCentralX() + getWidth(), getCentralY());
    Player::doMoveRight();
}

void AIPlayer::doFire() {
    aim(fireX, fireY);
    Player::doFire();
}

}  // namespace Grevan
