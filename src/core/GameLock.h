#pragma once

#include <pthread.h>

#include <memory>

namespace Grevan {

// The global game lock: one non-recursive mutex that the main loop and the script thread
// take in turns whenever they touch the world.
void initializeLock();
void destroyLock();
void lockGame();
void unlockGame();

// Holds the game lock for as long as it lives.
class GameLockGuard {
  public:
    GameLockGuard() { lockGame(); }
    ~GameLockGuard() { unlockGame(); }
    GameLockGuard(const GameLockGuard&) = delete;
    GameLockGuard& operator=(const GameLockGuard&) = delete;
};

// Starts procedure(arg) on a new thread with default attributes; joinThread waits for it.
std::unique_ptr<pthread_t> createThread(void* arg, void* (*procedure)(void*));
void joinThread(std::unique_ptr<pthread_t> thread);

}  // namespace Grevan
