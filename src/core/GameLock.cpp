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

void* createThread(void* arg, void* (*procedure)(void*)) {
    pthread_t* thread = new pthread_t;
    pthread_create(thread, nullptr, procedure, arg);
    return thread;
}

void joinThread(void* handle) {
    pthread_t* thread = static_cast<pthread_t*>(handle);
    pthread_join(*thread, nullptr);
    delete thread;
}

}  // namespace Grevan
