#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <string>

#include "core/GameLock.h"
#include "script/VeskScript.h"
#include "scripting/ScriptEvent.h"

namespace Grevan {

// The game's script host. It gives the Vesk engine the game's host functions, loads the main
// script and runs it on a thread of its own: first the script's Main, then, every 100 ms while
// the game runs, the script functions named by game events ("OnKill", "OnPresent"), which the
// main thread raises inside the frame and this queues, in the order raised.
class ScriptSystem {
  public:
    static constexpr const char* kMainScript = "./script/main.fb";

    ScriptSystem() = default;
    ~ScriptSystem();
    ScriptSystem(const ScriptSystem&) = delete;
    ScriptSystem& operator=(const ScriptSystem&) = delete;

    // Registers the host functions, loads the script (a failure is reported, and the thread
    // starts all the same) and starts the script thread. Once, on the main thread, with the
    // game built.
    void start(const std::string& mainScript = kMainScript);
    // Ends the script thread and waits for it. A script still running stops at its next loop
    // pass or function call, silently: a stop is no error. A host function waiting for the game
    // returns once the game has ended, which the caller sees to first. Events still queued are
    // never run; they go with the system.
    void stop();
    // The thread's body: Main, then the events until the game ends or stop is asked.
    void runScript();

    // Adds the game's host functions to an engine, in the order the game registers them.
    static void registerHostFunctions(VeskScript& engine);

    // Queues an event for the script; always true. Safe from any thread.
    bool raise(const std::string& name, int arg1, int arg2, int arg3);
    // The text form; its first argument is 0.
    bool raise(const std::string& name, const std::string& text, int arg2, int arg3);

    // The oldest queued event, taken out of the queue; null when none waits.
    std::unique_ptr<ScriptEvent> takeEvent();
    int getPendingEventCount();

  private:
    static void* threadProcedure(void* host);
    void queue(ScriptEvent event);
    bool isServing() const;
    void serveQueuedEvents();
    // Calls the event's function with its three integers; a runtime error is reported and ends
    // that event only. A stop is passed on.
    void serve(ScriptEvent& event);

    std::unique_ptr<pthread_t> thread;  // from createThread; null while no script thread runs
    VeskScript script;                  // used by the script thread alone once it runs
    std::deque<std::unique_ptr<ScriptEvent>> events;
    // raise runs on the main thread while the script thread drains the queue.
    std::mutex eventsLock;
};

}  // namespace Grevan
