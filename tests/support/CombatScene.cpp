#include "support/CombatScene.h"

using Grevan::Player;

void CombatScene::SetUp() {
    folder.writeStrip("floor.bmp", 1000, 20, 1);
    folder.writeStrip("wall.bmp", 20, 100, 1);
    loadLevel(false);
}

void CombatScene::loadLevel(bool withWall) {
    std::string map = "0 1000 400 40 60 80 " + std::to_string(withWall ? 2 : 1) + " " +
                      folder.reachFrom("image/object", "floor.bmp") + " 0 0 0 " + std::to_string(kFloorTop) +
                      " 0 0 0 0 " + folder.reachFrom("image/object", "wall.bmp") + " 0 0 " +
                      std::to_string(kWallLeft) + " " + std::to_string(kWallTop) + " 0 0 0 0";
    game->loadMap(folder.writeFile("level.map", map).c_str());
    me = addStandingPlayer(100);
}

Player* CombatScene::addStandingPlayer(int x, const std::string& role) {
    Player* p = new Player("player", role);
    standOnFloor(p, x);
    return p;
}

void CombatScene::standOnFloor(Player* p, int x) {
    p->setX(x);
    p->setY(kFloorTop - p->getHeight() - 4);
    game->addPlayer(std::unique_ptr<Player>(p));
    for (int i = 0; i < 60 && p->isFree(); i++) {
        runFrames(1);
    }
    EXPECT_FALSE(p->isFree()) << "the player should stand on the floor";
}

void CombatScene::runUntilReady(Grevan::Weapon* w) {
    for (int i = 0; i < 200 && (w->getTimer() > 0 || w->getBulletCurrent() == 0); i++) {
        w->move();
    }
}

void CombatScene::teleport(Player* p, int x, int y) {
    blocks().removeObject(p);
    p->setX(x);
    p->setY(y);
    blocks().addObject(p);
}
