// Keyboard and mouse as events: only edges travel, the newest event of a frame acts on the main
// player, and locked control or a speech bubble keeps input from acting.

#include "core/InputSystem.h"

#include <allegro.h>

#include <algorithm>
#include <string>
#include <utility>

#include "actors/Pistol.h"
#include "support/CombatScene.h"

namespace {

class Input : public CombatScene {
  protected:
    void SetUp() override {
        CombatScene::SetUp();
        game->setMainPlayer(me);
        game->unlockControl();
    }
    void TearDown() override {
        std::fill(key, key + KEY_MAX, 0);
        mouse_x = mouse_y = mouse_b = 0;
    }

    Grevan::InputSystem& input() { return game->getInputSystem(); }
    Grevan::EventSystem& events() { return game->getEventSystem(); }
    // The queued events as "action+" (press) or "action-" (release), oldest first.
    std::string queued() {
        std::string told;
        for (const std::unique_ptr<Event>& e : events().getEvents()) {
            told += std::to_string(e->action) + (e->pressed ? "+ " : "- ");
        }
        return told;
    }
    void send(EventAction action, bool pressed, int data = 0) {
        EXPECT_TRUE(
            game->getClientNetwork().sendEvent(std::make_unique<Event>(Event{0, action, pressed, data})));
    }
    // Sends the event and handles the queue, as a frame does.
    void act(EventAction action, bool pressed, int data = 0) {
        send(action, pressed, data);
        events().handleEvents();
    }
};

TEST_F(Input, EveryKeyAndButtonHeldForFramesQueuesOnePressAndOneReleaseForTheMainPlayer) {
    const std::pair<int, EventAction> keys[] = {
        {KEY_A, ACTION_MOVE_LEFT}, {KEY_D, ACTION_MOVE_RIGHT}, {KEY_W, ACTION_JUMP},
        {KEY_S, ACTION_KEY_S},     {KEY_R, ACTION_RELOAD},     {KEY_LSHIFT, ACTION_KEY_SHIFT},
        {KEY_1, ACTION_SLOT_1},    {KEY_2, ACTION_SLOT_2},     {KEY_3, ACTION_SLOT_3},
        {KEY_4, ACTION_SLOT_4},    {KEY_Q, ACTION_KEY_Q},      {KEY_B, ACTION_KEY_B},
        {KEY_M, ACTION_KEY_M},
    };
    for (const auto& [k, action] : keys) {
        for (int held : {1, 1, 1, 0, 0, 0}) {
            key[k] = held;
            input().doInput();
        }
        EXPECT_EQ(queued(), std::to_string(action) + "+ " + std::to_string(action) + "- ") << "key " << k;
        EXPECT_EQ(events().getEvents().front()->playerId, me->getPlayerId());
        events().clear();
    }
    mouse_b = 1;
    input().doInput();
    mouse_b = 2;
    input().doInput();
    EXPECT_EQ(queued(), "0+ 0- 1+ ");
    events().clear();
    game->setMainPlayer(nullptr);
    key[KEY_W] = 1;
    input().doInput();
    EXPECT_EQ(queued(), "") << "nothing without a main player";
}

TEST_F(Input, MouseMotionMovesTheSightAndTheAimAndFireActsAtTheSightWhichAHeldTriggerFollows) {
    map().moveClientTo(900, 0);  // the camera's corner moves off the level's left end
    const int clientX = map().getClientX();
    const int clientY = map().getClientY();
    mouse_x = 300;
    mouse_y = 200;
    input().doInput();
    input().doInput();
    ASSERT_EQ(queued(), "15- ") << "a mouse at rest sends nothing";
    events().handleEvents();
    EXPECT_EQ(std::make_pair(me->getAimX(), me->getAimY()), std::make_pair(300 + clientX, 200 + clientY));
    act(ACTION_FIRE, true);
    EXPECT_TRUE(me->isFiring());
    EXPECT_EQ(std::make_pair(me->getFireX(), me->getFireY()), std::make_pair(300 + clientX, 200 + clientY));
    act(ACTION_MOUSE_MOVE, false, (400 << 16) | 70);
    EXPECT_EQ(std::make_pair(me->getFireX(), me->getFireY()), std::make_pair(400 + clientX, 70 + clientY))
        << "the held trigger follows the sight";
    act(ACTION_FIRE, false);
    EXPECT_FALSE(me->isFiring());
    act(ACTION_MOUSE_MOVE, false, (10 << 16) | 10);
    EXPECT_EQ(std::make_pair(me->getFireX(), me->getFireY()), std::make_pair(400 + clientX, 70 + clientY))
        << "a released trigger stays";
}

TEST_F(Input, OnlyTheNewestEventOfAFrameActsWhileControlIsUnlockedAndAMotionItDroppedComesAgain) {
    send(ACTION_MOVE_LEFT, true);
    send(ACTION_MOVE_RIGHT, true);
    events().handleEvents();
    EXPECT_FALSE(me->isMovingLeft()) << "dropped";
    EXPECT_TRUE(me->isMovingRight());
    EXPECT_EQ(queued(), "");
    // A motion dropped for a click of its frame is reported again, so the sight catches up.
    Grevan::AimSystem& sight = game->getAimSystem();
    mouse_x = 300;
    input().doInput();
    events().handleEvents();
    mouse_x = 340;
    mouse_b = 1;
    input().doInput();
    events().handleEvents();
    EXPECT_EQ(me->getFireX() - map().getClientX(), 300) << "fired at the sight as it was";
    input().doInput();
    events().handleEvents();
    EXPECT_EQ(sight.getX(), 340);
    game->lockControl();
    act(ACTION_MOVE_LEFT, true);
    EXPECT_FALSE(me->isMovingLeft()) << "dropped while locked";
    EXPECT_EQ(queued(), "");
    game->unlockControl();
    act(ACTION_MOVE_LEFT, true);
    EXPECT_TRUE(me->isMovingLeft());
    send(ACTION_MOVE_RIGHT, true);
    loadLevel(false);
    EXPECT_EQ(queued(), "") << "loading a map drops queued events";
}

TEST_F(Input, SlotKeysReloadAndUnknownActionsActOnPressAndOnRelease) {
    const std::pair<EventAction, int> slots[] = {
        {ACTION_SLOT_1, 2}, {ACTION_SLOT_2, 1}, {ACTION_SLOT_3, 0}, {ACTION_SLOT_4, 3}};
    Grevan::Pistol* pistol = arm<Grevan::Pistol>(me, 30);
    for (bool pressed : {true, false}) {
        for (const auto& [action, equipment] : slots) {
            me->setEquipment(-1);
            act(action, pressed);
            EXPECT_EQ(me->getEquipment(), equipment) << "action " << action << (pressed ? " down" : " up");
        }
        me->setEquipment(1);
        act(ACTION_RELOAD, pressed);
        EXPECT_TRUE(pistol->isReloading()) << (pressed ? "press" : "release");
        runUntilReady(pistol);
    }
    std::string printed = GrevanTest::printedBy([&] {
        act(ACTION_KEY_B, true);
        act(ACTION_KEY_M, false);
        act(ACTION_KEY_Q, true);
    });
    EXPECT_EQ(printed, "Unknown action 13\nUnknown action 14\n");
}

TEST_F(Input, WhileABubbleShowsAClickOnlyClosesItAndOtherInputIsDropped) {
    Grevan::Dialog& bubble = game->getDialog();
    bubble.setPosition(100, 100).setText("Hello");
    for (bool pressed : {true, false}) {
        bubble.show();
        // A bubble can be closed once it has shown for a moment.
        for (int i = 0; i < Grevan::Dialog::kShortestShowing; i++) {
            bubble.move();
        }
        act(ACTION_MOVE_RIGHT, true);
        EXPECT_TRUE(bubble.isVisible());
        EXPECT_FALSE(me->isMovingRight());
        act(ACTION_FIRE, pressed);
        EXPECT_FALSE(bubble.isVisible()) << "closed by a " << (pressed ? "press" : "release");
        EXPECT_FALSE(me->isFiring()) << "the click is not fired";
    }
}

}  // namespace
