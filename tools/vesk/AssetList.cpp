#include "AssetList.h"

#include <filesystem>
#include <iterator>
#include <system_error>

#include "actors/RoleDescription.h"
#include "core/MapFile.h"
#include "ui/SoundFiles.h"

namespace {

// The status bar's pictures and the robot's, which the game loads whatever the script does.
const char* const kGuiPictures[] = {
    "image/gui/back.bmp",   "image/gui/defend.bmp",  "image/gui/blood.bmp",  "image/gui/gun.bmp",
    "image/gui/pistol.bmp", "image/gui/grenade.bmp", "image/gui/bullet.bmp",
};
const char* const kRobotPicture = "image/gui/ib.bmp";

// The picture each weapon a player of a role can carry draws: image/role/<role>/<name>.bmp.
const char* const kWeaponPictures[] = {"gun", "pistol", "grenade"};

const char* const kMissing = "missing";

std::string location(const ArgumentTexts::Call& call) {
    return call.file + ":" + std::to_string(call.line);
}

}  // namespace

AssetList::AssetList(const ScriptLinter& linter, std::ostream& notes) {
    const std::vector<std::string>& scripts = linter.getScripts();
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        add(scripts[i], i == 0 ? "the main script" : "imported");
    }
    for (const ArgumentTexts::Call& call : linter.getTexts().getCalls()) {
        addHostCall(linter.getTexts(), call, notes);
    }
    for (const char* picture : kGuiPictures) {
        add(picture, "status bar");
    }
    add(kRobotPicture, "robot");
    for (const Grevan::SoundFile& sound : Grevan::kSoundFiles) {
        add(sound.file, std::string("sound \"") + sound.name + "\"");
    }
}

std::size_t AssetList::add(const std::string& path, const std::string& neededBy) {
    for (std::size_t i = 0; i < assets.size(); ++i) {
        if (assets[i].path == path) {
            return i;
        }
    }
    std::error_code unreadable;
    const bool present = std::filesystem::is_regular_file(path, unreadable);
    assets.push_back({path, neededBy, present ? "" : kMissing});
    return assets.size() - 1;
}

void AssetList::addHostCall(const ArgumentTexts& texts, const ArgumentTexts::Call& call,
                            std::ostream& notes) {
    const HostFunctionSignature* function = findHostFunction(call.function);
    if (!function) {
        return;
    }
    for (std::size_t argument = 0; argument < std::size(function->kinds); ++argument) {
        const HostArgumentKind kind = function->kinds[argument];
        if (kind == ARGUMENT_MAP || kind == ARGUMENT_ROLE || kind == ARGUMENT_PICTURE) {
            addNamedFiles(texts, call, *function, argument, notes);
        }
    }
}

void AssetList::addNamedFiles(const ArgumentTexts& texts, const ArgumentTexts::Call& call,
                              const HostFunctionSignature& function, std::size_t argument,
                              std::ostream& notes) {
    const std::string neededBy = std::string(function.name) + " at " + location(call);
    bool computed = false;
    for (const std::optional<std::string>& text : texts.possibleTexts(call, argument)) {
        if (!text) {
            computed = true;
        } else if (function.kinds[argument] == ARGUMENT_MAP) {
            addMap(*text, neededBy);
        } else if (function.kinds[argument] == ARGUMENT_ROLE) {
            addRole(*text, neededBy);
        } else {
            add("image/object/" + *text + ".bmp", neededBy);
        }
    }
    if (computed) {
        notes << location(call) << ": note: " << function.name
              << " is given a name computed when the script runs; the files it can name are not all listed\n";
    }
}

void AssetList::addMap(const std::string& path, const std::string& neededBy) {
    const std::size_t map = add(path, neededBy);
    if (!assets[map].problem.empty() || !followed.insert(path).second) {
        return;
    }
    Grevan::MapFile file;
    if (!file.read(path.c_str())) {
        assets[map].problem = file.getRefusal();
        return;
    }
    for (const Grevan::MapPiece& piece : file.getPieces()) {
        add("image/object/" + piece.image, "piece of " + path);
    }
}

void AssetList::addRole(const std::string& role, const std::string& neededBy) {
    const std::string folder = "image/role/" + role + "/";
    const std::string description = folder + "config.dat";
    const std::size_t config = add(description, "role " + role + ", " + neededBy);
    if (!assets[config].problem.empty() || !followed.insert(description).second) {
        return;
    }
    Grevan::RoleDescription file;
    file.read(description.c_str());
    assets[config].problem = file.getProblem();
    for (const Grevan::RoleAction& action : file.getActions()) {
        add(action.strip, "strip of role " + role);
    }
    for (const char* weapon : kWeaponPictures) {
        add(folder + weapon + ".bmp", "weapon of role " + role);
    }
}

int AssetList::write(std::ostream& out) const {
    int problems = 0;
    for (const Asset& asset : assets) {
        if (asset.problem.empty()) {
            out << "ok        " << asset.path << "  (" << asset.neededBy << ")\n";
            continue;
        }
        ++problems;
        if (asset.problem == kMissing) {
            out << "missing   " << asset.path << "  (" << asset.neededBy << ")\n";
        } else {
            out << "unusable  " << asset.path << "  (" << asset.neededBy << "): " << asset.problem << '\n';
        }
    }
    out << assets.size() << " files, " << problems << " missing or unusable" << '\n';
    return problems;
}
