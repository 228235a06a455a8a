#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <string>

#include "scripting/ScriptEvent.h"

namespace Grevan {

// The game's script host. Game events ("OnKill", "OnPresent") are raised on the main thread
// inside the frame and queued here for the script thread, which calls the script function of
// each event's name in the order raised.
class ScriptSystem {
  public:
    ScriptSystem() = default;
    ScriptSystem(const ScriptSystem&) = delete;
    ScriptSystem& operator=(const ScriptSystem&) = delete;

    // Queues an event for the script; always true. Safe from any thread.
    bool raise(const std::string& name, int arg1, int arg2, int arg3);
    // The text form; its first argument is 0.
    bool raise(const std::string& name, const std::string& text, int arg2, int arg3);

    // The oldest queued event, taken out of the queue; null when none waits.
    std::unique_ptr<ScriptEvent> takeEvent();
    int getPendingEventCount();

  private:
    void queue(ScriptEvent event);

    std::deque<std::unique_ptr<ScriptEvent>> events;
    // raise runs on the main thread while the script thread drains the queue.
    std::mutex eventsLock;
};

}  // namespace Grevan
