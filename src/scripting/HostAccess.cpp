#include "scripting/HostAccess.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "actors/Player.h"
#include "core/Game.h"

namespace Grevan {

Game* game = nullptr;

namespace {
const int kPollMilliseconds = 100;
}

Player* findPlayer(int id) {
    return dynamic_cast<Player*>(game->getObjectSystem().getObjectById(id));
}

void waitWhile(const std::function<bool()>& condition) {
    while (game->isRunning() && condition()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(kPollMilliseconds));
    }
}

void sleepWhileRunning(int milliseconds) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::milliseconds(std::max(milliseconds, 0));
    while (game->isRunning()) {
        const Clock::duration left = end - Clock::now();
        if (left <= Clock::duration::zero()) {
            return;
        }
        std::this_thread::sleep_for(
            std::min<Clock::duration>(left, std::chrono::milliseconds(kPollMilliseconds)));
    }
}

}  // namespace Grevan
