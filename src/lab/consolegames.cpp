#include "lab/consolegames.h"

#include "files/gamefile.h"
#include "lab/game.h"

namespace tarnwick::lab {

std::string DoSave(Console& c, Arguments& a) {
    const std::string path = a.Rest();
    return SaveGame(c.T, path, LabUserFolder()) ? std::string() : "the game can't be saved as " + path;
}

std::string DoOpen(Console& c, Arguments& a) {
    const std::string path = a.Rest();
    return OpenGame(c.T, path, LabUserFolder()) ? std::string() : "the game " + path + " can't be opened";
}

}  // namespace tarnwick::lab
