#pragma once

#include <memory>

#include "core/Event.h"

namespace Grevan {

// Hands input events to the event queue, addressed to the main player.
class ClientNetwork {
  public:
    // Stamps the event with the main player's id and queues it; false, and the event is freed,
    // when there is no main player.
    bool sendEvent(std::unique_ptr<Event> e);

    void setPlayerId(int id) { playerId = id; }
    int getPlayerId() const { return playerId; }

  private:
    int playerId = 0;      // not used by the event path
    bool discard = false;  // nothing sets it; when set, events are dropped
};

}  // namespace Grevan
