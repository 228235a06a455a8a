#include "core/GameLock.h"

#include <pthread.h>

namespace Grevan {

namespace {
pthread_mutex_t gameLock;
}

void initializeLock() {
    pthread_mutex_init(&gameLock, nullptr);
}

void destroyLock() {
    pthread_mutex_destroy(&gameLock);
}

void lockGame() {
    pthread_mutex_lock(&gameLock);
}

void unlockGame() {
    pthread_mutex_unlock(&gameLock);
}

std::unique_ptr<pthread_t> createThread(void* arg, void* (*procedure)(void*)) {
    auto thread = std::make_unique<pthread_t>();
    pthread_create(thread.get(), nullptr, procedure, arg);
    return thread;
}

void joinThread(std::unique_ptr<pthread_t> thread) {
    pthread_join(*thread, nullptr);
}

}  // namespace Grevan
