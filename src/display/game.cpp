#include "display/game.h"

#include <QByteArray>
#include <utility>

#include "files/gamefile.h"
#include "files/paths.h"
#include "table/session.h"

namespace tarnwick {

Game::Game(std::string userFolder) : State(std::make_unique<Table>()), Folder(std::move(userFolder)), Logs(Folder) {}

Game::~Game() {
    // What is still to be logged goes by what stands here, in the order of destruction.
    State->Front = nullptr;
    State->Scripts = nullptr;
    State->Logs = nullptr;
}

void Game::Start(Screen& front, const std::string& given) {
    SubMain(*State, &front);
    Found = SoundLibrary(SoundFolders(Folder));
    ChooseFirstSounds(*State, Found);
    State->Scripts = &ScriptsOf;
    State->Logs = &Logs;
    OpenGameAtStart(*State, given, Folder);
    KeepSoundsWithin(*State, Found);
    State->GameFolder = Folder;
}

bool Game::Open(const std::string& path) {
    const bool opened = OpenGame(*State, path, Folder);
    KeepSoundsWithin(*State, Found);
    return opened;
}

bool Game::Save(const std::string& path) { return SaveGame(*State, path, Folder); }

bool Game::SaveAtExit() { return SaveGameAtExit(*State, Folder); }

std::string DesktopUserFolder() {
    const auto variable = [](const char* name) { return qgetenv(name).toStdString(); };
    return UserFolder(variable("TARNWICK_HOME"), variable("XDG_DATA_HOME"), variable("HOME"));
}

}  // namespace tarnwick
