#include "scripting/ScriptSystem.h"

#include <gtest/gtest.h>

#include <thread>

using Grevan::ScriptEvent;
using Grevan::ScriptSystem;

namespace {

TEST(ScriptSystem, EventsAreTakenInTheOrderRaisedWithTheirArguments) {
    ScriptSystem scripts;
    EXPECT_TRUE(scripts.raise("OnKill", 7, 120, -3));
    EXPECT_TRUE(scripts.raise("OnPresent", "a gift", 40, 50));
    EXPECT_EQ(scripts.getPendingEventCount(), 2);

    struct Expected {
        const char* name;
        const char* text;
        int arg1, arg2, arg3;
    } expected[] = {{"OnKill", "", 7, 120, -3}, {"OnPresent", "a gift", 0, 40, 50}};
    for (const Expected& e : expected) {
        std::unique_ptr<ScriptEvent> event = scripts.takeEvent();
        ASSERT_NE(event, nullptr);
        EXPECT_EQ(event->name, e.name);
        EXPECT_EQ(event->text, e.text);
        EXPECT_EQ(event->arg1, e.arg1);
        EXPECT_EQ(event->arg2, e.arg2);
        EXPECT_EQ(event->arg3, e.arg3);
    }
    EXPECT_EQ(scripts.takeEvent(), nullptr);
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
    int taken = 0;
    int expectedNext = 0;
    while (taken < kEvents / 2) {
        if (std::unique_ptr<ScriptEvent> event = scripts.takeEvent()) {
            EXPECT_EQ(event->arg1, expectedNext++);
            taken++;
        }
    }
    raiser.join();
    EXPECT_EQ(scripts.getPendingEventCount(), kEvents - taken);
}

}  // namespace
