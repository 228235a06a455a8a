#include "scripting/ScriptSystem.h"

#include <gtest/gtest.h>

#include <thread>

#include "support/TestSupport.h"

using Grevan::ScriptSystem;
using GrevanTest::takeEvent;

namespace {

TEST(ScriptSystem, EventsAreTakenInTheOrderRaisedWithTheirArguments) {
    ScriptSystem scripts;
    EXPECT_TRUE(scripts.raise("OnKill", 7, 120, -3));
    EXPECT_TRUE(scripts.raise("OnPresent", "a gift", 40, 50));
    EXPECT_EQ(scripts.getPendingEventCount(), 2);
    EXPECT_EQ(takeEvent(scripts), "OnKill  7 120 -3");
    EXPECT_EQ(takeEvent(scripts), "OnPresent a gift 0 40 50");
    EXPECT_EQ(takeEvent(scripts), "none");
}

// Run under ThreadSanitizer, this shows the queue's own lock at work; events still queued at
// the end are deleted with the system (LeakSanitizer watches).
TEST(ScriptSystem, RaisingWhileAnotherThreadDrainsLosesNothing) {
    ScriptSystem scripts;
    const int kEvents = 2000;
    std::thread raiser([&scripts] {
        for (int i = 0; i < kEvents; i++) {
            scripts.raise("OnKill", i, 0, 0);
        }
    });
    for (int taken = 0; taken < kEvents / 2;) {
        if (std::unique_ptr<Grevan::ScriptEvent> event = scripts.takeEvent()) {
            EXPECT_EQ(event->arg1, taken++);
        }
    }
    raiser.join();
    EXPECT_EQ(scripts.getPendingEventCount(), kEvents - kEvents / 2);
}

}  // namespace
