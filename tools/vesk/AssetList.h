#pragma once

#include <cstddef>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "ScriptLinter.h"

// Every file a level script can make the game read, found without running the script: the scripts
// it imports; the maps, roles and pictures that host functions' arguments name (their kinds in
// HostFunctionTable.h): a map's piece pictures, a role's description, strips and weapon pictures; and what
// the game always loads: the status-bar pictures, the robot and the sounds. A name is followed through text
// CONSTs, variables assigned texts and helper functions' parameters (ArgumentTexts); a call whose name is
// computed otherwise gets a note.
class AssetList {
  public:
    explicit AssetList(const ScriptLinter& linter, std::ostream& notes);

    // One line per file, "ok", "missing" or "unusable" (a file the game would refuse), then a
    // count. Returns the number of files that are not ok.
    int write(std::ostream& out) const;

  private:
    struct Asset {
        std::string path;
        std::string neededBy;
        std::string problem;  // empty when the file is there and usable, else "missing" or the refusal
    };

    // The index of the path's entry, made on its first mention.
    std::size_t add(const std::string& path, const std::string& neededBy);
    void addMap(const std::string& path, const std::string& neededBy);
    void addRole(const std::string& role, const std::string& neededBy);
    void addHostCall(const ArgumentTexts& texts, const ArgumentTexts::Call& call, std::ostream& notes);
    // The files one argument that names a map, a role or a picture can make the game read.
    void addNamedFiles(const ArgumentTexts& texts, const ArgumentTexts::Call& call,
                       const HostFunctionSignature& function, std::size_t argument, std::ostream& notes);

    std::vector<Asset> assets;
    std::set<std::string> followed;  // maps and role descriptions whose contents are listed
};
