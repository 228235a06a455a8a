#include "ReachWorld.h"

#include <utility>

ReachWorld::ReachWorld(const ReachLevel& level, std::unique_ptr<Grevan::Player> lent) {
    blocks.initializeGrid(level.getWidth(), level.getHeight());
    // Pieces enter the block map in the map's order and the player last, as a level script adds
    // it: the order of a cell decides the order in which collisions resolve.
    for (const ReachPiece& solid : level.getSolids()) {
        auto piece = std::make_unique<Grevan::Object>();
        piece->setX(solid.x);
        piece->setY(solid.y);
        piece->setWidth(solid.width);
        piece->setHeight(solid.height);
        piece->setCollidable(true);
        blocks.addObject(piece.get());
        pieces.push_back(std::move(piece));
    }
    player = lent.get();
    objects.addObject(std::move(lent));
}

ReachWorld::~ReachWorld() {
    blocks.cleanup();
}

std::unique_ptr<Grevan::Player> ReachWorld::release() {
    std::unique_ptr<Grevan::Object> owned = objects.removeObject(player);
    blocks.removeObject(player);
    player->setFree(true);
    player = nullptr;
    return std::unique_ptr<Grevan::Player>(static_cast<Grevan::Player*>(owned.release()));
}

ReachState ReachWorld::startAt(int x, int y) const {
    ReachState state;
    state.position = cornerForFeet(*player, x, y);
    return state;
}

ReachState ReachWorld::capture() const {
    ReachState state;
    state.position = player->getPosition();
    state.velocity = player->getVelocity();
    state.acceleration = player->getAcceleration();
    state.board = player->getBoard();
    state.free = player->isFree();
    state.slidingFriction = player->getSlidingFriction();
    state.held = held;
    state.jumping = player->isJumping();
    return state;
}

namespace {

// Whether the block map files two rectangles under the same cells: it finds them by the same
// truncating division of their edges.
bool isInSameCells(const Rect& a, const Rect& b) {
    const int size = Grevan::BlockSystem::kCellSize;
    return a.left / size == b.left / size && a.top / size == b.top / size &&
           a.right / size == b.right / size && a.bottom / size == b.bottom / size;
}

}  // namespace

void ReachWorld::restore(const ReachState& state) {
    // The step takes the player out of the cells of its rectangle as restored before it moves:
    // it is left in the grid when those are the cells it is filed under, which they mostly are.
    const Rect filed = *player->getRectangle();
    player->setPosition(state.position);
    if (!isInSameCells(filed, *player->getRectangle())) {
        blocks.removeObject(player, filed.left, filed.top, filed.right, filed.bottom);
    }
    player->setVelocity(state.velocity);
    player->setAcceleration(state.acceleration);
    player->setFree(state.free);
    player->setBoard(state.board);
    player->setSlidingFriction(state.slidingFriction);
    // The keys as the input handling would have left them with these held.
    player->stopMoving();
    if (state.held.direction == ReachInput::LEFT) {
        player->moveLeft(true);
    } else if (state.held.direction == ReachInput::RIGHT) {
        player->moveRight(true);
    }
    player->jump(state.jumping);
    held = state.held;
}

void ReachWorld::step(ReachInput input) {
    input.applyTo(*player, held);
    held = input;
    objects.moveObjects();
}
