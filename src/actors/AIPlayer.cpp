#include "actors/AIPlayer.h"

#include <cstdlib>
#include <iterator>

#include "core/Game.h"

namespace Grevan {

namespace {

// What an opponent does when it decides.
enum Decision {
    DECISION_SHOOT,  // at the main player, if he is in sight
    DECISION_WALK,   // towards either end of the map, if it stands on something
    DECISION_IDLE,
};

// One rand() draw picks a row: four chances in seven to shoot, one to walk, two to do nothing.
const Decision kDecisionByDraw[] = {DECISION_SHOOT, DECISION_SHOOT, DECISION_SHOOT, DECISION_SHOOT,
                                    DECISION_WALK,  DECISION_IDLE,  DECISION_IDLE};
const int kDecisionDraws = static_cast<int>(std::size(kDecisionByDraw));

}  // namespace

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
    switch (kDecisionByDraw[rand() % kDecisionDraws]) {
        case DECISION_SHOOT:
            shootIfInSight(Game::getInstance()->getMainPlayer());
            break;
        case DECISION_WALK:
            if (getBoard()) {
                walkTowardsAnEnd();
            }
            break;
        case DECISION_IDLE:
            break;
    }
}

void AIPlayer::walkTowardsAnEnd() {
    // A target beyond the map's end: the walk ends at the board's edge or on a bump, never on arrival.
    PlayerAction walk;
    walk.type = ACTION_MOVE_TO;
    walk.x = Game::getInstance()->getMapSystem().getWidth();
    if ((rand() & 1) == 0) {
        walk.x = -walk.x;
    }
    setAction(walk);
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

void AIPlayer::doMove(Facing facing) {
    aim(getCentralX() + signOf(facing) * getWidth(), getCentralY());
    Player::doMove(facing);
}

void AIPlayer::doFire() {
    aim(fireX, fireY);
    Player::doFire();
}

}  // namespace Grevan
