#include "support/WorldTestSupport.h"

#include <filesystem>
#include <fstream>

namespace GrevanTest {

namespace {

void shape(Grevan::Object* o, int x, int y, int width, int height) {
    o->setX(x);
    o->setY(y);
    o->setWidth(width);
    o->setHeight(height);
}

}  // namespace

Grevan::Object* makeBlock(int x, int y, int width, int height, bool collidable) {
    Grevan::Object* o = new Grevan::Object();
    shape(o, x, y, width, height);
    o->setCollidable(collidable);
    return o;
}

Grevan::RealBody* makeBody(int x, int y, int width, int height) {
    Grevan::RealBody* body = new Grevan::RealBody();
    shape(body, x, y, width, height);
    return body;
}

std::string buildOutputPath(const std::string& name) {
    const std::filesystem::path folder = std::filesystem::path(GREVAN_BINARY_DIR) / "test-output";
    std::filesystem::create_directories(folder);
    return (folder / name).string();
}

std::string writeBuildFile(const std::string& name, const std::string& text) {
    const std::string path = buildOutputPath(name);
    std::ofstream(path) << text;
    return path;
}

std::string sourcePath(const std::string& relative) {
    return (std::filesystem::path(GREVAN_SOURCE_DIR) / relative).string();
}

}  // namespace GrevanTest
