#include "ReachReplay.h"

#include <algorithm>
#include <memory>

#include "ReachWorld.h"
#include "core/Game.h"

std::vector<int> replayWitness(Grevan::Game& game, const ReachLevel& level, ReachPoint start,
                               const ReachWitness& witness, const std::string& role, BITMAP* buffer) {
    auto made = std::make_unique<Grevan::Player>("replay", role);
    made->setPosition(ReachWorld::cornerForFeet(*made, start.x, start.y));
    Grevan::Player* player = game.addPlayer(std::move(made));
    ReachInput held;
    for (const ReachInput& input : witness) {
        input.applyTo(*player, held);
        held = input;
        game.playFrame(buffer, 0);
    }
    std::vector<int> standing;
    ReachWorld::forSpansStoodOn(level, *player, [&](int span) { standing.push_back(span); });
    std::vector<Grevan::Player*>& players = game.getPlayers();
    players.erase(std::find(players.begin(), players.end(), player));
    game.getBlockSystem().removeObject(player);
    game.getObjectSystem().removeObject(player);
    return standing;
}
