#include "scripting/ScriptSystem.h"

namespace Grevan {

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
