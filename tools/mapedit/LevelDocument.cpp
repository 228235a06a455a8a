#include "LevelDocument.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

bool samePiece(const Grevan::MapPiece& a, const Grevan::MapPiece& b) {
    return a.image == b.image && a.layer == b.layer && a.solid == b.solid && a.x == b.x && a.y == b.y &&
           a.ignored == b.ignored;
}

}  // namespace

bool LevelDocument::operator==(const LevelDocument& other) const {
    return leadingNumber == other.leadingNumber && width == other.width && height == other.height &&
           red == other.red && green == other.green && blue == other.blue &&
           std::equal(pieces.begin(), pieces.end(), other.pieces.begin(), other.pieces.end(), samePiece);
}

bool LevelDocument::read(const std::string& path, std::string& error, int& dropped) {
    Grevan::MapFile file;
    if (!file.read(path.c_str())) {
        error = file.getRefusal();
        return false;
    }
    leadingNumber = file.getLeadingNumber();
    width = file.getWidth();
    height = file.getHeight();
    red = file.getRed();
    green = file.getGreen();
    blue = file.getBlue();
    pieces = file.getPieces();
    const auto unnamed = std::remove_if(pieces.begin(), pieces.end(),
                                        [](const Grevan::MapPiece& piece) { return piece.image.empty(); });
    dropped = static_cast<int>(pieces.end() - unnamed);
    pieces.erase(unnamed, pieces.end());
    return true;
}

void LevelDocument::write(std::ostream& out) const {
    out << leadingNumber << "\n"
        << width << " " << height << "\n"
        << red << " " << green << " " << blue << "\n";
    out << pieces.size() << "\n";
    for (const Grevan::MapPiece& piece : pieces) {
        out << piece.image << " " << piece.layer << " " << (piece.solid ? 0 : 1) << " " << piece.x << " "
            << piece.y;
        for (int number : piece.ignored) {
            out << " " << number;
        }
        out << "\n";
    }
}

std::string LevelDocument::checkBounds() const {
    return Grevan::MapFile::checkSize(width, height, static_cast<long long>(pieces.size()));
}

bool LevelDocument::save(const std::string& path, bool backup, std::string& error) const {
    namespace fs = std::filesystem;
    error = checkBounds();
    if (!error.empty()) {
        return false;
    }
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) {
        error = "cannot write " + path + ": it is a folder";
        return false;
    }
    // The temporary file lies in the map's own folder, so that the rename stays on one file system.
    std::string temporary = path + ".XXXXXX";
    const int descriptor = mkstemp(temporary.data());
    if (descriptor < 0) {
        error = "cannot write " + path + ": " + std::strerror(errno);
        return false;
    }
    close(descriptor);
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        write(out);
        out.flush();
        if (!out) {
            error = "cannot write " + path + ": the disk may be full";
        }
    }
    std::error_code failure;
    if (error.empty() && backup && fs::exists(path)) {
        fs::copy_file(path, path + "~", fs::copy_options::overwrite_existing, failure);
    }
    if (error.empty() && !failure) {
        // A new file gets the usual rw-r--r--; a saved one keeps its own.
        const fs::perms mode = fs::exists(path) ? fs::status(path).permissions()
                                                : fs::perms::owner_read | fs::perms::owner_write |
                                                      fs::perms::group_read | fs::perms::others_read;
        fs::permissions(temporary, mode, failure);
        fs::rename(temporary, path, failure);
    }
    if (error.empty() && failure) {
        error = "cannot write " + path + ": " + failure.message();
    }
    if (!error.empty()) {
        fs::remove(temporary, failure);
        return false;
    }
    return true;
}
