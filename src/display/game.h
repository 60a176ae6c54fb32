// The game that the desktop plays: the table, the scripts of its players, its logs and the file that keeps it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "autobet/autobets.h"
#include "autobet/hotkeys.h"
#include "display/soundsets.h"
#include "files/filesinuse.h"
#include "stats/tablelogs.h"
#include "table/crapcnst.h"

namespace tarnwick {

class Game {
  public:
    /// `userFolder` holds the standing files.
    explicit Game(std::string userFolder);
    ~Game();
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    /// Brings the table into the state of a program that has just started, speaking through `front`: the game `given`
    /// on the command line, else the standing one.
    void Start(Screen& front, const std::string& given);

    /// False after a message; Open leaves the game as it was then, unless the file was cut short.
    bool Open(const std::string& path);
    bool Save(const std::string& path);
    /// Keeps the standing game and the hot keys for the next start.
    bool SaveAtExit();

    Table& T() { return *State; }
    AutoBets& Scripts() { return ScriptsOf; }
    /// Found at the start.
    const SoundLibrary& Sounds() const { return Found; }
    TableLogs& LogsOf() { return Logs; }
    /// Where the files in use lie.
    std::vector<PathGroup> Paths() const;
    /// Read at the start, and kept at the exit, of a program.
    HotKeyList& HotKeys() { return Keys; }

  private:
    void ReadHotKeys();
    bool SaveChangedHotKeys();

    std::unique_ptr<Table> State;
    AutoBets ScriptsOf;
    std::string Folder;
    TableLogs Logs;
    SoundLibrary Found;
    HotKeyList Keys, KeysAtStart;
    bool KeysRead = false;  ///< else the file is one that couldn't be read, and stays as it is
};

/// The user's folder by the environment.
std::string DesktopUserFolder();

}  // namespace tarnwick
