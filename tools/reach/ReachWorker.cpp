#include "ReachWorker.h"

#include <utility>

ReachWorker::ReachWorker(const std::string& role) : analysis(role), thread(&ReachWorker::serve, this) {}

ReachWorker::~ReachWorker() {
    {
        std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
        cancel = true;
    }
    wake.notify_one();
    thread.join();
}

void ReachWorker::request(ReachJob job) {
    {
        std::lock_guard<std::mutex> lock(mutex);
        pending = std::move(job);
        cancel = true;
    }
    wake.notify_one();
}

std::shared_ptr<const ReachAnswer> ReachWorker::latest() const {
    std::lock_guard<std::mutex> lock(mutex);
    return answer;
}

bool ReachWorker::isSearching() const {
    std::lock_guard<std::mutex> lock(mutex);
    return searching || pending;
}

void ReachWorker::serve() {
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return stopping || pending; });
        if (stopping) {
            return;
        }
        ReachJob job = std::move(*pending);
        pending.reset();
        // Cleared under the mutex: a request made after this point cancels this search.
        cancel = false;
        searching = true;
        lock.unlock();
        ReachResult result = analysis.run(*job.level, job.start, cancel);
        lock.lock();
        searching = false;
        if (!result.cancelled) {
            answer = std::make_shared<const ReachAnswer>(ReachAnswer{std::move(job), std::move(result)});
        }
    }
}
