#include "scripting/ScriptSystem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/CombatScene.h"
#include "support/TestSupport.h"

using Grevan::ScriptSystem;
using GrevanTest::takeEvent;

namespace {

TEST(ScriptSystem, TheTextFormOfAnEventHasZeroForItsFirstNumber) {
    ScriptSystem scripts;
    EXPECT_TRUE(scripts.raise("OnPresent", "a gift", 40, 50));
    EXPECT_EQ(takeEvent(scripts), "OnPresent a gift 0 40 50");
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

// The script thread of a headless game, started on a script of the test's own; `finish` ends
// the game, joins the thread and gives everything printed since the start.
class ScriptThread : public CombatScene {
  protected:
    void start(const std::string& source) {
        testing::internal::CaptureStdout();
        scripts().start(folder.writeFile("main.fb", source));
    }
    std::string finish() {
        game->endGame();
        scripts().stop();
        fflush(stdout);
        return testing::internal::GetCapturedStdout();
    }
    Grevan::ScriptSystem& scripts() { return game->getScriptSystem(); }
    void sleep(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

// Events raised while Main runs wait for it. An event function that fails (a missing one, or one
// taking fewer than the event's three values) is reported on a line; the next event is still served.
TEST_F(ScriptThread, EventsAreServedAfterMainInOrderEachOnceAndFailuresAreReported) {
    start(
        "FUNCTION Main()\n  print(\"main\\n\")\n  delay(300)\n  print(\"main done\\n\")\nEND FUNCTION\n"
        "FUNCTION OnPresent(Id)\n  print(\"never\")\nEND FUNCTION\n"
        "FUNCTION OnKill(Id, X, Y)\n  print(\"kill \", Id, \" \", X, \" \", Y, \"\\n\")\nEND FUNCTION\n");
    sleep(50);
    scripts().raise("OnKill", 7, 120, -3);
    scripts().raise("OnPresent", 1, 2, 3);
    scripts().raise("OnSomethingElse", 1, 2, 3);
    scripts().raise("onkill", 8, 0, 1);
    sleep(700);
    EXPECT_EQ(scripts().getPendingEventCount(), 0);
    EXPECT_EQ(finish(),
              "Script thread running \nmain\nmain done\nkill 7 120 -3\n"
              "ONPRESENT(0): Too many parameters : ONPRESENT\n"
              "ONSOMETHINGELSE(0): Function not found : ONSOMETHINGELSE\n"
              "kill 8 0 1\nScript thread ended\n");
}

// Ending the game ends the script whatever it is doing, here a loop without end in Main, and
// silently: the events raised meanwhile are neither run nor reported.
TEST_F(ScriptThread, EndingTheGameStopsAScriptThatNeverReturns) {
    start("FUNCTION Main()\n  DO WHILE 1\n    N = N + 1\n  LOOP\nEND FUNCTION\n");
    scripts().raise("OnKill", 1, 2, 3);
    scripts().raise("OnNothing", 1, 2, 3);
    sleep(100);
    EXPECT_EQ(finish(), "Script thread running \nScript thread ended\n");
    EXPECT_EQ(scripts().getPendingEventCount(), 2);
}

// A stop asked while Main waits and the game runs on: Main's genuine error after the wait is
// still reported, and the events queued are never served.
TEST_F(ScriptThread, AStopServesNoMoreEventsButAGenuineErrorIsReported) {
    start(
        "DIM Zero\nFUNCTION Main()\n  delay(500)\n  X = 1 / Zero\nEND FUNCTION\n"
        "FUNCTION OnKill(Id, X, Y)\n  print(\"kill\")\nEND FUNCTION\n");
    scripts().raise("OnKill", 1, 2, 3);
    scripts().raise("OnKill", 4, 5, 6);
    sleep(100);
    scripts().stop();
    EXPECT_EQ(scripts().getPendingEventCount(), 2);
    EXPECT_EQ(finish(),
              "Script thread running \nRuntime error: At line 4 : MAIN: Division by zero : /\n"
              "Script thread ended\n");
}

}  // namespace
