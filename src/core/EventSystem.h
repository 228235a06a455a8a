#pragma once

#include <deque>
#include <memory>

#include "core/Event.h"

namespace Grevan {

class Player;

// The queue of input events between reading the input (outside the game lock) and acting on
// the main player (under it). Both happen on the main thread.
class EventSystem {
  public:
    void addEvent(std::unique_ptr<Event> e);
    // Drops every queued event; a new map starts without old input.
    void clear() { events.clear(); }
    const std::deque<std::unique_ptr<Event>>& getEvents() const { return events; }

    // Acts on the newest queued event and drops the older ones: while a speech bubble shows, a
    // click only closes it; while control is locked nothing acts.
    void handleEvents();

  private:
    void act(const Event& e, Player* p);
    void aim(Player* p, int data);

    std::deque<std::unique_ptr<Event>> events;  // oldest first
};

}  // namespace Grevan
