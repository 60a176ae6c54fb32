#include "display/game.h"

#include <QByteArray>
#include <QCoreApplication>
#include <utility>

#include "files/gamefile.h"
#include "files/paths.h"
#include "table/messages.h"
#include "table/session.h"

namespace tarnwick {

namespace {

constexpr const char* HotKeyFile = "HotKeys.dta";
constexpr const char* HotKeyTitle = "Hot-Key";

}  // namespace

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
    ReadHotKeys();
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

bool Game::SaveAtExit() {
    const bool kept = SaveGameAtExit(*State, Folder);  // which makes the folder
    return SaveChangedHotKeys() && kept;
}

void Game::ReadHotKeys() {
    const std::string fault = LoadHotKeys(PathIn(Folder, HotKeyFile), Keys);
    KeysAtStart = Keys;
    KeysRead = fault.empty();
    if (!KeysRead) ShowNote(*State, HotKeyTitle, fault);
}

/// A file whose keys are as they were stays as it is, with all that it may hold beyond them.
bool Game::SaveChangedHotKeys() {
    const std::string path = PathIn(Folder, HotKeyFile);
    if (!KeysRead || (Keys == KeysAtStart && IsFile(path))) return true;
    const std::string fault = SaveHotKeys(path, Keys);
    if (!fault.empty()) ShowNote(*State, HotKeyTitle, fault);
    return fault.empty();
}

std::vector<PathGroup> Game::Paths() const {
    return FilesInUse(*State, Logs, QCoreApplication::applicationDirPath().toStdString(), Folder);
}

std::string DesktopUserFolder() {
    const auto variable = [](const char* name) { return qgetenv(name).toStdString(); };
    return UserFolder(variable("TARNWICK_HOME"), variable("XDG_DATA_HOME"), variable("HOME"));
}

}  // namespace tarnwick
