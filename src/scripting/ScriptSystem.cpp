#include "scripting/ScriptSystem.h"

#include <chrono>
#include <cstdio>
#include <thread>

#include "core/Game.h"
#include "scripting/BasicHostFunctions.h"
#include "scripting/HostAccess.h"
#include "scripting/HostFunctionTable.h"
#include "scripting/HostFunctions.h"

namespace Grevan {

namespace {

constexpr HostFunctionBindings kGameHostFunctions = {{
    {HOST_PRINT, print},
    {HOST_IS_NULL, isNull},
    {HOST_MESSAGE, message},
    {HOST_SYSTEM, command},
    {HOST_LOAD_MAP, loadMap},
    {HOST_ADD_PLAYER, addPlayer},
    {HOST_SHOW_OBJECT, showObject},
    {HOST_SET_PLAYER_HEALTH, setPlayerHealth},
    {HOST_FADE_IN, fadeIn},
    {HOST_FADE_OUT, fadeOut},
    {HOST_DELAY, delay},
    {HOST_ENDGAME, endgame},
    {HOST_ADD_PLAYER_WEAPON, addPlayerWeapon},
    {HOST_SWITCH_WEAPON, switchWeapon},
    {HOST_PLAYER_DO_AIM, playerDoAim},
    {HOST_PLAYER_DO_FIRE, playerDoFire},
    {HOST_PLAYER_DO_MOVE, playerDoMove},
    {HOST_PLAYER_DO_STOP, playerDoStop},
    {HOST_SAY, say},
    {HOST_ROBOT_SAY, robotSay},
    {HOST_WAIT_FOR_PLAYER_ACTION, waitForPlayerAction},
    {HOST_SHOW_ROBOT, showRobot},
    {HOST_LOCK_CONTROL, lockControl},
    {HOST_ADD_PRESENT, addPresent},
    {HOST_ADD_HIDDEN_PRESENT, addHiddenPresent},
    {HOST_SET_PLAYER_AI_MODE, setPlayerAIMode},
    {HOST_DIE, die},
    {HOST_PLAYER_X, playerX},
    {HOST_PLAYER_Y, playerY},
}};
static_assert(bindsEveryHostFunctionInOrder(kGameHostFunctions), "the game implements every host function");

const auto kEventPoll = std::chrono::milliseconds(100);

// Lines of the script host go out at once, in order with what the script prints.
void printLine(const std::string& text) {
    printf("%s\n", text.c_str());
    fflush(stdout);
}

}  // namespace

ScriptSystem::~ScriptSystem() {
    stop();
}

void ScriptSystem::registerHostFunctions(VeskScript& engine) {
    ::registerHostFunctions(engine, kGameHostFunctions);
}

void ScriptSystem::start(const std::string& mainScript) {
    registerHostFunctions(script);
    if (!script.load(mainScript)) {
        printLine("Script error: " + script.getLastError());
    }
    game = Game::getInstance();
    thread = createThread(this, threadProcedure);
}

void ScriptSystem::stop() {
    if (!thread) {
        return;
    }
    script.requestStop();
    joinThread(std::move(thread));
}

void* ScriptSystem::threadProcedure(void* host) {
    static_cast<ScriptSystem*>(host)->runScript();
    return nullptr;
}

void ScriptSystem::runScript() {
    printLine("Script thread running ");
    try {
        if (!script.run("Main")) {
            printLine("Runtime error: " + script.getLastError());
        }
        // Main has returned: only now are events served, each to its end.
        while (isServing()) {
            serveQueuedEvents();
            std::this_thread::sleep_for(kEventPoll);
        }
    } catch (const VeskStopException&) {
        // The game is quitting, which is no error: nothing to report.
    }
    printLine("Script thread ended");
}

// Once the game has ended, the events still queued stay there and are never run.
bool ScriptSystem::isServing() const {
    return game->isRunning() && !script.isStopRequested();
}

void ScriptSystem::serveQueuedEvents() {
    while (isServing()) {
        std::unique_ptr<ScriptEvent> event = takeEvent();
        if (!event) {
            return;
        }
        serve(*event);
    }
}

void ScriptSystem::serve(ScriptEvent& event) {
    std::vector<VeskVariable>& stack = script.getRuntimeStack();
    for (int argument : {event.arg1, event.arg2, event.arg3}) {
        stack.emplace_back().setInteger(argument);
    }
    VeskScript::toUpperString(event.name);
    try {
        script.invokeFunction(event.name, 3);
    } catch (const VeskRuntimeException& x) {
        printLine(x.function + "(" + std::to_string(x.line) + "): " + x.error + " : " + x.detail);
    }
    // After a runtime error the values that the unwound frames pushed are still on the stack;
    // three come off all the same.
    stack.resize(stack.size() - 3);
}

bool ScriptSystem::raise(const std::string& name, int arg1, int arg2, int arg3) {
    queue(ScriptEvent{name, "", arg1, arg2, arg3});
    return true;
}

bool ScriptSystem::raise(const std::string& name, const std::string& text, int arg2, int arg3) {
    queue(ScriptEvent{name, text, 0, arg2, arg3});
    return true;
}

void ScriptSystem::queue(ScriptEvent event) {
    auto queued = std::make_unique<ScriptEvent>(std::move(event));
    std::lock_guard<std::mutex> guard(eventsLock);
    events.push_back(std::move(queued));
}

std::unique_ptr<ScriptEvent> ScriptSystem::takeEvent() {
    std::lock_guard<std::mutex> guard(eventsLock);
    if (events.empty()) {
        return nullptr;
    }
    std::unique_ptr<ScriptEvent> oldest = std::move(events.front());
    events.pop_front();
    return oldest;
}

int ScriptSystem::getPendingEventCount() {
    std::lock_guard<std::mutex> guard(eventsLock);
    return static_cast<int>(events.size());
}

}  // namespace Grevan
