#pragma once

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "ReachAnalysis.h"

// One search asked of a ReachWorker, and once done, what it found. The tag names the version of
// the level it was asked for (an editor's revision), so that a window can tell a stale answer.
struct ReachJob {
    std::shared_ptr<const ReachLevel> level;
    ReachPoint start;
    long tag = 0;
};

struct ReachAnswer {
    ReachJob job;
    ReachResult result;
};

// Runs reach searches on a thread of its own, so that a window asking after every edit never
// waits for one. Only the latest request counts: a new one cancels the search under way and takes
// its place. The window and the worker meet only under the mutex, for as long as it takes to hand
// a request or an answer over; the search itself runs outside it.
class ReachWorker {
  public:
    // The role's pictures load here, on the caller's thread; the thread starts at once and waits.
    explicit ReachWorker(const std::string& role = "soldier");
    // Cancels the search under way and joins the thread.
    ~ReachWorker();
    ReachWorker(const ReachWorker&) = delete;
    ReachWorker& operator=(const ReachWorker&) = delete;

    void request(ReachJob job);
    // The answer to the latest request that finished, if any; it may be older than the latest
    // request while isSearching().
    std::shared_ptr<const ReachAnswer> latest() const;
    bool isSearching() const;

  private:
    void serve();

    ReachAnalysis analysis;  // used by the worker thread alone once it runs
    mutable std::mutex mutex;
    std::condition_variable wake;
    std::optional<ReachJob> pending;            // guarded by mutex
    bool searching = false;                     // guarded by mutex
    bool stopping = false;                      // guarded by mutex
    std::shared_ptr<const ReachAnswer> answer;  // guarded by mutex
    std::atomic<bool> cancel{false};
    std::thread thread;  // last, so that it starts when everything it uses is there
};
