#pragma once

namespace Grevan {

// The global game lock: one non-recursive mutex that the main loop and the script thread
// take in turns whenever they touch the world.
void initializeLock();
void destroyLock();
void lockGame();
void unlockGame();

// Starts procedure(arg) on a new thread with default attributes; returns an opaque handle
// that joinThread waits on and frees.
void* createThread(void* arg, void* (*procedure)(void*));
void joinThread(void* handle);

}  // namespace Grevan
